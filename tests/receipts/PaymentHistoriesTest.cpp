// Thousands of random histories of payments against another program's exact fractions, in both forms of the split.

#include "receipts/SplitBatch.h"
#include "store/Dates.h"
#include "store/NumberFormat.h"
#include "tests/support/Database.h"
#include "tests/support/Log.h"
#include "tests/support/Print.h"
#include <QMap>
#include <QProcess>
#include <gtest/gtest.h>

using namespace ledgora;
using namespace ledgora::test;

namespace {

using SplitTexts = QMap<std::pair<int, int>, QString>; ///< by receipt and serial

QString text(const PaymentSplit &split)
{
    QStringList values;
    for (const TaxShare &share : {split.amount, split.discount}) {
        for (const auto &value : {share.applied, share.cgst, share.sgst, share.igst})
            values << (value ? plainNumber(*value) : QString("-"));
    }
    return values.join(' ');
}

SplitTexts texts(const std::vector<SplitRow> &rows)
{
    SplitTexts all;
    for (const SplitRow &row : rows)
        all.insert({row.receiptId, row.serial}, text(row.split));
    return all;
}

/// The rows one receipt at a time.
SplitTexts singly(Connection &db, const std::vector<SplitRow> &rows)
{
    SplitTexts all;
    for (size_t first = 0, end = 0; first < rows.size(); first = end) {
        std::vector<PaymentRow> own;
        for (; end < rows.size() && rows[end].receiptId == rows[first].receiptId; ++end)
            own.push_back(rows[end].row);
        const QString date = formatDate(rows[first].date, "DD/MM/YYYY");
        const auto splits = splitOfReceipt(db, rows[first].receiptId, date, rows[first].number, own);
        for (size_t i = 0; i < splits.size(); ++i)
            all.insert({rows[first].receiptId, rows[first + i].serial}, text(splits[i]));
    }
    return all;
}

/// The first row that differs, for a message that can be read.
QString difference(const SplitTexts &found, const SplitTexts &expected)
{
    for (auto row = expected.cbegin(); row != expected.cend(); ++row) {
        if (found.value(row.key(), "missing") != *row)
            return QString("receipt %1, row %2: %3, not %4")
                .arg(row.key().first)
                .arg(row.key().second)
                .arg(found.value(row.key(), "missing"), *row);
    }
    return found.size() == expected.size() ? QString() : QString("rows that are not there");
}

class PaymentHistories : public testing::TestWithParam<int>
{
};

TEST_P(PaymentHistories, SplitAsExactFractionsDoInBothForms)
{
    QProcess fractions;
    fractions.start(LEDGORA_PYTHON, {LEDGORA_PAYMENT_HISTORIES, QString::number(GetParam())});
    ASSERT_TRUE(fractions.waitForFinished(60'000));
    ASSERT_EQ(fractions.exitCode(), 0) << fractions.readAllStandardError().toStdString();
    const QStringList lines = QString::fromUtf8(fractions.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    const auto end = lines.indexOf("--");
    Database data;
    const Log log;
    for (const QString &sql : lines.first(end))
        data.run(sql);
    SplitTexts expected;
    for (const QString &line : lines.sliced(end + 1)) {
        const QStringList row = line.split(' ');
        expected.insert({row[0].toInt(), row[1].toInt()}, row.sliced(2).join(' '));
    }
    ASSERT_GT(expected.size(), 5000);

    QList<int> ids;
    for (auto row = expected.keyBegin(); row != expected.keyEnd(); ++row)
        ids << row->first; // once a row: a doubled id changes nothing
    const std::vector<SplitRow> all = splitsOfReceipts(data.db(), ids);
    EXPECT_EQ(difference(texts(all), expected), "") << "many at once";
    EXPECT_EQ(difference(singly(data.db(), all), expected), "") << "one at a time";

    SplitTexts ofCompany;
    for (const SplitRow &row : splitsOfCompany(data.db(), 1, "15/05/2024"))
        ofCompany.insert({row.receiptId, row.serial}, text(row.split));
    SplitTexts upToThatDay;
    for (const QString &row : data.rows("Select RecpSrNo,SrNo From GST_RecpM Join GST_RecpD On RecpId=RecpSrNo Where "
                                        "FirmId=1 And RecpDt<='2024-05-15'")) {
        const std::pair key{row.section('|', 0, 0).toInt(), row.section('|', 1).toInt()};
        upToThatDay.insert(key, expected.value(key));
    }
    EXPECT_EQ(difference(ofCompany, upToThatDay), "") << "a company up to a day";
    EXPECT_TRUE(log.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Seeds, PaymentHistories, testing::Values(1, 2));

} // namespace
