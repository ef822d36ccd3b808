#pragma once

#include "platform/Reporter.h"
#include <QProcess>
#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace ledgora::reporter {

using Values = std::vector<std::pair<QString, PlaceholderValue>>;

/// Values for every placeholder of a template of the kind ("Intra", "Inter", "NoTax"), with so many filled lines.
inline Values billValues(const QString &kind, int lines)
{
    Values values;
    for (const char *name : {"FIRM_NAME",         "FIRM_DESIG",
                             "FIRM_GSTIN",        "FIRM_PAN",
                             "PARTY_NAME",        "PARTY_GSTIN",
                             "PARTY_PAN",         "PARTY_ADDRESS",
                             "PLACE_OF_SUPPLY",   "BILL_DT",
                             "BILL_NO",           "TOTWORDS",
                             "PAYTERMS_INFAVOF",  "PAYTERMS_BANKNM_BRADD",
                             "PAYTERMS_ACNO",     "PAYTERMS_IFSC",
                             "PAYTERMS_COMMENTS", "NOTE",
                             "AUTHSIGN_NAME",     "AUTHSIGN_DESIG",
                             "FIRM_ADDRESS",      "FIRM_CONTDET",
                             "FIRM_EMLWEB"})
        values.emplace_back(QStringLiteral("#%1#").arg(QLatin1String(name)),
                            QString(QLatin1String(name)).replace(QLatin1Char('_'), QLatin1Char(' ')).toLower());
    QStringList amounts = {QStringLiteral("AMT"), QStringLiteral("DISC"), QStringLiteral("NAMT")};
    QStringList rates;
    if (kind == QStringLiteral("Intra")) {
        amounts += {QStringLiteral("CAMT"), QStringLiteral("SAMT"), QStringLiteral("TAMT")};
        rates = QStringList{QStringLiteral("CRT"), QStringLiteral("SRT")};
    } else if (kind == QStringLiteral("Inter")) {
        amounts += {QStringLiteral("IAMT"), QStringLiteral("TAMT")};
        rates = QStringList{QStringLiteral("IRT")};
    }
    for (int line = 1; line <= 10; ++line) {
        const bool filled = line <= lines;
        const auto add = [&](const QString &name, const PlaceholderValue &value) {
            values.emplace_back(QStringLiteral("#%1_%2#").arg(name).arg(line), filled ? value : QString());
        };
        add(QStringLiteral("SN"), QStringLiteral("%1.").arg(line));
        add(QStringLiteral("PARTICULARS_SAC"), QStringLiteral("Work %1\r\nSAC : 998221").arg(line));
        add(QStringLiteral("YR"), QStringLiteral("A.Y.\r\n2019-20"));
        for (const QString &name : amounts)
            add(name, 1000.5 + line);
        for (const QString &name : rates)
            add(name, QStringLiteral("2.5%"));
    }
    for (const QString &name : amounts)
        values.emplace_back(QStringLiteral("#GT%1#").arg(name), 123456789.0);
    values.emplace_back(QStringLiteral("#TOTFIGS#"), 987654321.0);
    return values;
}

enum class Breaks { Dropped, Kept };

/// The words of a PDF file as an independent reader sees them; the end of a page is the word "\f" where it is kept.
inline QStringList pdfWords(const QString &path, Breaks breaks = Breaks::Dropped)
{
    QProcess reader;
    reader.start(QStringLiteral("pdftotext"), {QStringLiteral("-raw"), path, QStringLiteral("-")});
    EXPECT_TRUE(reader.waitForFinished()) << "pdftotext is needed";
    EXPECT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().toStdString();
    QString text = QString::fromUtf8(reader.readAllStandardOutput());
    if (breaks == Breaks::Kept)
        return text.replace(u'\f', QStringLiteral(" \f "))
            .split(QRegularExpression(QStringLiteral("[ \\n\\r\\t]+")), Qt::SkipEmptyParts);
    return text.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
}

} // namespace ledgora::reporter
