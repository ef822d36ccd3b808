#include "reports/ReportFile.h"

#include <QSaveFile>

namespace ledgora {

namespace {

constexpr qsizetype pieceSize = 64LL * 1024;
constexpr int rowsBetweenWords = 256;

} // namespace

bool ReportSink::rowDone(int row)
{
    if (m_pending.size() >= pieceSize && !flush())
        return false;
    return row % rowsBetweenWords != 0 || m_progress(row, m_rows, QStringLiteral("Writing rows"));
}

bool ReportSink::finish()
{
    return flush() && m_progress(m_rows, m_rows, QStringLiteral("Writing rows"));
}

bool ReportSink::flush()
{
    const bool taken = m_out.write(m_pending) == m_pending.size();
    m_pending.clear();
    return taken;
}

QString saveReportFile(const QString &path, const std::function<bool(QIODevice &)> &write)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    if (write(file))
        return file.commit() ? QString() : file.errorString();
    return file.error() == QFileDevice::NoError ? QString::fromLatin1(cancelledText) : file.errorString();
}

} // namespace ledgora
