#include "reports/ReportFile.h"

#include <QFile>
#include <filesystem>
#include <system_error>

namespace ledgora {

namespace {

constexpr qsizetype pieceSize = 64LL * 1024;
constexpr int rowsBetweenWords = 256;

/// What is written until it is whole.
QString partOf(const QString &path)
{
    return path + QStringLiteral(".part");
}

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

QString reportPlaceFault(const QString &path)
{
    QFile part(partOf(path));
    part.remove(); // left over from a run that was broken off
    if (!part.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return part.errorString();
    part.close();
    part.remove();
    return {};
}

QString saveReportFile(const QString &path, const std::function<bool(QIODevice &)> &write)
{
    QFile part(partOf(path));
    part.remove(); // left over from a run that was broken off
    if (!part.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return part.errorString();
    const bool written = write(part) && part.flush();
    QString fault = part.error() == QFileDevice::NoError ? QString() : part.errorString();
    if (!written && fault.isEmpty())
        fault = QString::fromLatin1(cancelledText);
    part.close();
    std::error_code refused;
    if (fault.isEmpty())
        std::filesystem::rename(part.filesystemFileName(), QFile(path).filesystemFileName(), refused);
    if (refused)
        fault = QString::fromStdString(refused.message());
    if (!fault.isEmpty())
        part.remove();
    return fault;
}

} // namespace ledgora
