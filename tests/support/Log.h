#pragma once

#include "host/WorkingState.h"
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <vector>

namespace ledgora::test {

/// An error log of the test's own while the object lives.
class Log
{
public:
    Log() { gLogPath = m_folder.filePath(QStringLiteral("ledgora.log")); }
    Log(const Log &) = delete;
    Log &operator=(const Log &) = delete;
    ~Log() { gLogPath.clear(); }

    /// The fields of every line so far.
    std::vector<QStringList> lines() const
    {
        QFile file(gLogPath);
        std::vector<QStringList> lines;
        if (!file.open(QIODevice::ReadOnly))
            return lines;
        QStringList texts = QString::fromUtf8(file.readAll()).split(u'\n');
        texts.removeLast(); // every line is ended
        for (const QString &text : texts)
            lines.push_back(text.split(u'\t'));
        return lines;
    }
    /// Object and procedure of every line so far, "frmBillGST CMDUPDATE_CLICK".
    QStringList sites() const
    {
        QStringList sites;
        for (const QStringList &fields : lines())
            sites << QString(fields.value(4) + u' ' + fields.value(5));
        return sites;
    }
    bool isEmpty() const { return lines().empty(); }

private:
    QTemporaryDir m_folder;
};

} // namespace ledgora::test
