#pragma once

#include "platform/Progress.h"
#include "store/Connection.h"
#include <exception>

namespace ledgora {

/// The screen that failures of report routines are logged under.
inline constexpr auto reportScreen = "frmReportsGST";

/// The user has ended the run of a report, by its bar or while the server worked. Ends at `makeReport`; what a run must
/// give back lies in objects.
class ReportCancelled : public std::exception
{
};

/// Ends the run when the user did not wait for the statement before.
inline void checkWaitedFor(const Connection &db)
{
    if (db.wasInterrupted())
        throw ReportCancelled();
}

inline Recordset readForReport(Connection &db, const QString &query)
{
    Recordset rows = db.Open(query);
    checkWaitedFor(db);
    return rows;
}

/// Tells the progress of rows, not of each of them: the bar would cost more than the rows.
class RowProgress
{
public:
    RowProgress(const Progress &progress, size_t total) : m_progress(progress), m_total(qint64(total)) {}

    void next()
    {
        constexpr qint64 rowsAStep = 256;
        if (m_done % rowsAStep == 0 && !m_progress(m_done, m_total, QStringLiteral("Writing the report")))
            throw ReportCancelled();
        ++m_done;
    }

private:
    const Progress &m_progress;
    qint64 m_done = 0, m_total;
};

/// Told between the queries of a report.
inline void tellReading(const Progress &progress)
{
    if (!progress(0, 0, QStringLiteral("Reading the documents")))
        throw ReportCancelled();
}

} // namespace ledgora
