#include "reports/Reports.h"

#include "reports/ReportFrame.h"
#include "reports/ReportRun.h"
#include "store/ErrorLog.h"
#include "store/FailureWatch.h"
#include "store/SqlText.h"
#include <QStringList>

namespace ledgora {

namespace {

struct Report
{
    void (*make)(Connection &, const ReportRequest &, ReportWriter &, const Progress &);
    const char *table; ///< its temporary table, "" for none
};
constexpr Report reports[] = {
    {REPBILLS, ""},
    {REPRECEIPTS, ""},
    {REPPENDINGBILLS, ""},
    {REPOUTSTANDING, "TempClOutStGST"},
    {REPDISCOUNT, "TempClDiscGST"},
    {REPTDS, "TempClTdsGST"},
    {REPSAC, ""},
    {GETACCOUNT, "TempClAcGST"},
};

/// Keeps two users' runs on one temporary table apart. Names of such locks hold for a whole server, which may have more
/// than one office.
class TableLock
{
public:
    TableLock(Connection &db, const char *table) : m_db(db), m_name(QLatin1String(table))
    {
        if (m_name.isEmpty())
            return;
        constexpr int mostSeconds = 60;
        Recordset answer = readForReport(db, "Select GET_LOCK(" + lockName() + ',' + number(mostSeconds) + ')');
        const bool answered = answer.next() && !answer.isNull(0);
        m_isHeld = answered && answer.integer(0) == 1;
        m_isBusy = answered && !m_isHeld;
    }
    TableLock(const TableLock &) = delete;
    TableLock &operator=(const TableLock &) = delete;
    ~TableLock()
    {
        if (m_isHeld)
            m_db.Open("Select RELEASE_LOCK(" + lockName() + ')');
    }

    /// Another user's run has it, and has not ended in time.
    bool isBusy() const { return m_isBusy; }

private:
    QString lockName() const { return "Concat(Database()," + quoted('.' + m_name) + ')'; }

    Connection &m_db;
    const QString m_name;
    bool m_isBusy = false, m_isHeld = false;
};

} // namespace

ReportResult makeReport(Connection &db, const ReportRequest &request, ReportWriter &writer, const Progress &progress)
{
    const ErrorSite site(reportScreen, "CMDPROCEEDC_CLICK");
    const Report &report = reports[size_t(request.kind)];
    const FailureWatch watch(db);
    try {
        const TableLock lock(db, report.table);
        if (lock.isBusy()) {
            WriteErrLog(1205, QStringLiteral("The temporary table is in use by another user"),
                        QLatin1String(report.table));
            return {QStringLiteral("Another user is making this report. Please try again in a minute.")};
        }
        if (request.kind == ReportKind::Bills)
            writer.SetCol130(true);
        writer.WinModeReport(true);
        writer.NewReport();
        report.make(db, request, writer, progress);
    } catch (const ReportCancelled &) {
        return {QLatin1String(cancelledText)};
    }
    const QString fault = watch.failed() ? watch.fault() : request.partiesFault;
    if (fault.isEmpty())
        return {};
    const QString notice = QStringLiteral("This report is incomplete. ") + fault;
    writeFreeLine(writer, bold(notice));
    writer.SetNotice(notice);
    return {.fault = notice, .isPartly = true};
}

} // namespace ledgora
