#include "reports/PartyTable.h"

#include "reports/ReportParties.h"
#include "reports/ReportRun.h"
#include "store/SqlText.h"
#include <utility>

namespace ledgora {

namespace {

constexpr int detailNameWidth = 100, summaryNameWidth = 255;

/// As much of a name as the detail table holds: the server would cut it too, with a warning for each row.
QString cutName(const QString &name)
{
    QString cut = name.left(detailNameWidth);
    if (cut.size() < name.size() && cut.back().isHighSurrogate())
        cut.chop(1);
    return cut;
}

} // namespace

PartyTable::PartyTable(Connection &db, const char *name, std::vector<const char *> amounts, const PartyCells &parties)
    : m_db(db)
    , m_name(QLatin1String(name))
    , m_amounts(std::move(amounts))
    , m_parties(parties)
{
    execute("Create Table If Not Exists " + m_name + columns(detailNameWidth));
    execute("Delete from " + m_name);
}

PartyTable::~PartyTable()
{
    drop(m_name);
    drop(m_name + '1');
}

QString PartyTable::columns(int nameWidth) const
{
    QString list = QStringLiteral(" (Code Varchar(50), Nm Varchar(%1)").arg(nameWidth);
    for (const char *amount : m_amounts)
        list += QStringLiteral(", ") + QLatin1String(amount) + QStringLiteral(" Double");
    return list + ')';
}

void PartyTable::execute(const QString &sql)
{
    m_db.Execute(sql);
    checkWaitedFor(m_db);
    m_db.Execute(QStringLiteral("Flush Tables"));
}

void PartyTable::drop(const QString &table)
{
    m_db.Execute("Drop Table If Exists " + table);
    m_db.Execute(QStringLiteral("Flush Tables"));
}

void PartyTable::add(const QString &code, std::span<const double> amounts)
{
    constexpr qsizetype mostCharacters =
        300'000; // a statement stays below a megabyte, whatever the script of the names
    m_rows += QLatin1String(m_rows.isEmpty() ? "(" : ",(");
    m_rows += quoted(code) + ',' + quoted(cutName(m_parties.name(code)));
    for (const double amount : amounts)
        m_rows += ',' + number(amount);
    m_rows += ')';
    if (m_rows.size() > mostCharacters)
        sendRows();
}

void PartyTable::sendRows()
{
    if (!m_rows.isEmpty())
        execute("Insert into " + m_name + " Values " + std::exchange(m_rows, {}));
}

Recordset PartyTable::summary(const QString &condition)
{
    sendRows();
    QString sums;
    for (const char *amount : m_amounts)
        sums += QStringLiteral(",sum(") + QLatin1String(amount) + ')';
    const QString summary = m_name + '1';
    execute("Create Table If Not Exists " + summary + columns(summaryNameWidth));
    execute("Delete from " + summary);
    execute("Insert into " + summary + " Select Code,Nm" + sums + " from " + m_name + " Group by Code");
    return readForReport(m_db, "Select * from " + summary
                                   + (condition.isEmpty() ? QString() : QString(" WHERE " + condition))
                                   + " Order by Nm,Code");
}

void writeParties(ReportWriter &writer, std::span<const ReportColumn> columns, Recordset summary, PartyCells &parties,
                  const Progress &progress)
{
    constexpr int firstAmount = 2; // behind code and name
    ReportTable table(writer, columns);
    table.writeHeading();
    std::vector<double> totals(columns.size() - 1);
    RowProgress rows(progress, size_t(summary.recordCount()));
    while (summary.next()) {
        rows.next();
        ReportCells cells(1);
        for (size_t i = 0; i < totals.size(); ++i) {
            const double amount = summary.number(firstAmount + int(i));
            totals[i] += amount;
            cells.emplace_back(signedAmount(amount));
        }
        table.writeRow(std::move(cells), 0, parties.of(summary.text(0)));
    }
    ReportCells total{QStringLiteral("Total")};
    for (const double amount : totals)
        total.emplace_back(signedAmount(amount, ""));
    table.writeTotal(std::move(total));
}

} // namespace ledgora
