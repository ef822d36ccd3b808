// Saving one bill of ten lines: what the program adds to the bare statements.

#include "Office.h"
#include "Ratios.h"
#include "bills/BillStore.h"
#include "store/Connection.h"
#include <QByteArray>
#include <cstdlib>
#include <mysql.h>

namespace ledgora::bench {

namespace {

constexpr int lines = 10;
constexpr auto ourName = "save bill, Ledgora";
constexpr auto bareName = "save bill, bare statements";

bool send(MYSQL *handle, const QByteArray &sql)
{
    return mysql_real_query(handle, sql.constData(), static_cast<unsigned long>(sql.size())) == 0;
}

int newId(MYSQL *handle)
{
    if (!send(handle, "Select Max(BillSrNo) as MaxSr From GST_BillM"))
        return 0;
    MYSQL_RES *result = mysql_store_result(handle);
    char **row = result ? mysql_fetch_row(result) : nullptr;
    const int highest = row && row[0] ? std::atoi(row[0]) : 0;
    mysql_free_result(result);
    return highest + 1;
}

/// The statements of a save in their order, nothing around them.
bool saveBare(MYSQL *handle)
{
    bool whole = send(handle, "LOCK TABLE GST_BillM Write");
    const int id = newId(handle);
    const QByteArray number = QByteArray::number(id);
    whole = id > 0 && whole
            && send(handle, QByteArray("Insert Into GST_BillM Values (" + number + ",1,2024,'BILL~OTHCL-000001',0,"
                                       + number + ",'2024-06-15 00:00:00','DELHI','INTRA','For services rendered')"));
    whole = send(handle, "UNLOCK TABLES") && whole;
    whole = send(handle, "Flush Tables") && whole;
    whole = send(handle, QByteArray("Delete From GST_BillD Where BillId=" + number)) && whole;
    whole = send(handle, "Flush Tables") && whole;
    for (int line = 1; line <= lines; ++line) {
        whole = send(handle,
                     QByteArray("Insert Into GST_BillD Values (" + number + "," + QByteArray::number(line)
                                + ",'Audit of the accounts','998221','F.Y.',2023,1000,0,1000,'N',9,90,9,90,0,0,1180)"))
                && whole;
        whole = send(handle, "Flush Tables") && whole;
    }
    return whole;
}

/// The same bill as the screen hands it over.
BillDraft draft()
{
    BillDraft bill;
    bill.firmId = 1;
    bill.year = 2024;
    bill.code = QStringLiteral("BILL~OTHCL-000001");
    bill.number = QStringLiteral("1");
    bill.date = QStringLiteral("15/06/2024");
    bill.state = QStringLiteral("DELHI");
    bill.taxType = TaxType::Intra;
    bill.narration = QStringLiteral("For services rendered");
    ADDDEFROWSB(bill.lines);
    for (int row = billFixedRows; row < billFixedRows + lines; ++row) {
        bill.lines.setText(row, ParticularsColumn, QStringLiteral("Audit of the accounts"));
        bill.lines.setText(row, SacColumn, QStringLiteral("998221"));
        bill.lines.setText(row, PeriodColumn, QStringLiteral("FY"));
        bill.lines.setText(row, YearColumn, QStringLiteral("2023"));
        bill.lines.setText(row, AmountColumn, QStringLiteral("1000"));
    }
    GETTOTSBILL(bill.lines, bill.taxType);
    return bill;
}

void ours(benchmark::State &state)
{
    Connection db(Office::instance().handle());
    const BillDraft bill = draft();
    for ([[maybe_unused]] const auto round : state) {
        const SaveResult saved = saveBill(db, bill);
        if (!saved.whole())
            return state.SkipWithError(saved.notIn.join(QStringLiteral("; ")).toUtf8().constData());
    }
}

void bare(benchmark::State &state)
{
    MYSQL *handle = Office::instance().handle();
    for ([[maybe_unused]] const auto round : state)
        if (!saveBare(handle))
            return state.SkipWithError(mysql_error(handle));
}

const int registered = [] {
    benchmark::RegisterBenchmark(ourName, ours)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(bareName, bare)->Unit(benchmark::kMillisecond);
    compare("save one bill of 10 lines", ourName, bareName, 1.15);
    return 0;
}();

} // namespace

} // namespace ledgora::bench
