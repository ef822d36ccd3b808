#pragma once

#include "platform/Progress.h"
#include <QByteArray>
#include <QIODevice>
#include <functional>

namespace ledgora {

/// Output that goes to a device in large pieces, and tells how far the rows have come.
class ReportSink
{
public:
    ReportSink(QIODevice &out, const Progress &progress, int rows) : m_out(out), m_progress(progress), m_rows(rows) {}

    void put(const QString &text) { m_pending += text.toUtf8(); }
    void put(char c) { m_pending += c; }
    /// To be called behind each row; False ends the work.
    bool rowDone(int row);
    bool finish();

private:
    bool flush();

    QIODevice &m_out;
    const Progress &m_progress;
    int m_rows;
    QByteArray m_pending;
};

/// "" or why no file can be made there: better told ahead of thousands of pages than behind them.
QString reportPlaceFault(const QString &path);

/// Makes the file by `write`, which answers False when it was cancelled or the device failed. It appears as a whole or
/// not at all, in place of a former one; a link of that name is replaced, not followed. Answers "" or what went wrong.
QString saveReportFile(const QString &path, const std::function<bool(QIODevice &)> &write);

} // namespace ledgora
