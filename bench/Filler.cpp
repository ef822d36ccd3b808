#include "Filler.h"

#include "masters/OtherClientStore.h"
#include "store/Connection.h"
#include "store/SqlText.h"
#include <QStringList>
#include <functional>
#include <stdexcept>

namespace ledgora::bench {

namespace {

constexpr int rowsAStatement = 2000;

void run(Connection &db, const QString &sql)
{
    if (!db.Execute(sql))
        throw std::runtime_error(db.lastError().toStdString());
}

/// Inserts rows 0 .. count-1, many to a statement.
void insertRows(Connection &db, const QString &table, int count, const std::function<QString(int)> &values)
{
    for (int first = 0; first < count; first += rowsAStatement) {
        QStringList rows;
        for (int row = first; row < std::min(first + rowsAStatement, count); ++row)
            rows << values(row);
        run(db, "INSERT INTO " + table + " Values " + rows.join(u','));
    }
}

int highest(Connection &db, const QString &query)
{
    Recordset rows = db.Open(query);
    return rows.next() ? int(rows.integer(0)) : 0;
}

QString partyName(int index)
{
    return QString(QChar('A' + index % 26)) + QStringLiteral("GARWAL TRADERS %1").arg(index, 6, 10, QLatin1Char('0'));
}

} // namespace

void fillParties(Connection &db, int count)
{
    insertRows(db, QStringLiteral("GST_OthCl"), count, [](int index) -> QString {
        return '(' + number(index + 1) + ',' + quoted(otherClientCode(index + 1)) + ',' + quoted(partyName(index))
               + ",'12','RAM BHAWAN','M G "
                 "ROAD','SADAR','DELHI','110006','DELHI','','','','','','AABFG1234C','07AABFG1234C1Z5')";
    });
}

void fillBills(Connection &db, int firmId, int year, int count, int parties)
{
    const int firstId = highest(db, QStringLiteral("Select Max(BillSrNo) From GST_BillM")) + 1;
    insertRows(db, QStringLiteral("GST_BillM"), count, [&](int index) -> QString {
        const QString day = QStringLiteral("%1-%2-%3 00:00:00")
                                .arg(year)
                                .arg(4 + index * 9 / count, 2, 10, QLatin1Char('0'))
                                .arg(1 + index % 28, 2, 10, QLatin1Char('0'));
        return '(' + number(firstId + index) + ',' + number(firmId) + ',' + number(year) + ','
               + quoted(otherClientCode(1 + index * 7 % parties)) + ",0," + number(index + 1) + ',' + quoted(day)
               + ",'DELHI','INTRA','')";
    });
    insertRows(db, QStringLiteral("GST_BillD"), count * 2, [&](int index) -> QString {
        const int amount = 500 + index * 37 % 90000;
        const int tax = amount * 9 / 100;
        return '(' + number(firstId + index / 2) + ',' + number(1 + index % 2)
               + ",'For services rendered','998221','FY'," + number(year) + ',' + number(amount) + ",0,"
               + number(amount) + ",'N',9," + number(tax) + ",9," + number(tax) + ",0,0," + number(amount + 2 * tax)
               + ')';
    });
}

void fillHalfPaid(Connection &db, int firmId, int year)
{
    const int shift = highest(db, QStringLiteral("Select Max(RecpSrNo) From GST_RecpM"));
    const QString bills = " From GST_BillM Where FirmId=" + number(firmId) + " and FYr=" + number(year);
    run(db, "Insert Into GST_RecpM Select BillSrNo+" + number(shift)
                + ",FirmId,FYr,Code_No,0,BillNo,BillDt,1,'0',0,'','','','',''" + bills);
    run(db, "Insert Into GST_RecpD Select BillId+" + number(shift)
                + ",1,BillId,Floor(Sum(TotalAmt)/2),0,0 From GST_BillD Where BillId IN (Select BillSrNo" + bills
                + ") Group By BillId");
}

void fillReceipts(Connection &db, int firmId, int year, int count, int firstBill, int bills)
{
    const int firstId = highest(db, QStringLiteral("Select Max(RecpSrNo) From GST_RecpM")) + 1;
    insertRows(db, QStringLiteral("GST_RecpM"), count, [&](int index) -> QString {
        const QString day = QStringLiteral("%1-%2-%3 00:00:00")
                                .arg(year)
                                .arg(4 + index * 9LL / count, 2, 10, QLatin1Char('0'))
                                .arg(1 + index % 28, 2, 10, QLatin1Char('0'));
        return '(' + number(firstId + index) + ',' + number(firmId) + ',' + number(year) + ','
               + quoted(otherClientCode(1)) + ",0," + number(index + 1) + ',' + quoted(day)
               + ",300,'0',0,'','','','','')";
    });
    insertRows(db, QStringLiteral("GST_RecpD"), count * 2, [&](int index) -> QString {
        const qint64 bill = firstBill + index * 7919LL % bills;
        return '(' + number(firstId + index / 2) + ',' + number(1 + index % 2) + ',' + number(bill) + ','
               + number(100 + index % 2 * 100) + ',' + number(index % 5 == 0 ? 10 : 0) + ",0)";
    });
}

} // namespace ledgora::bench
