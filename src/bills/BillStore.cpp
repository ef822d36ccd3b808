#include "bills/BillStore.h"

#include "store/Connection.h"
#include "store/Dates.h"
#include "store/NewId.h"
#include "store/NumberFormat.h"
#include "store/SqlText.h"

namespace ledgora {

namespace {

QString storedDate(const BillDraft &bill)
{
    return quoted(CONVERTTOSAVE(bill.date));
}

QString taxWord(const BillDraft &bill)
{
    return taxTypeWord(bill.taxType.value_or(TaxType::Intra));
}

/// The number as SQL: only digits can have passed the checks.
QString numberText(const BillDraft &bill)
{
    return number(Val(bill.number));
}

QString sameSeries(const BillDraft &bill)
{
    return "Select * from GST_BillM Where FirmId=" + number(bill.firmId) + " and FYr=" + number(bill.year)
           + " and BillSerId=" + number(bill.seriesId);
}

QString exceptItself(const BillDraft &bill)
{
    return bill.id > 0 ? QString(" and BillSrNo<>" + number(bill.id)) : QString();
}

std::optional<Neighbour> nearestBill(Connection &db, const QString &query)
{
    return firstNeighbour(db.Open(query), QStringLiteral("BillNo"), QStringLiteral("BillDt"));
}

QString updateHeader(const BillDraft &bill)
{
    return "UPDATE GST_BillM SET Code_No=" + quoted(bill.code) + ",BillSerId=" + number(bill.seriesId) + ",BillNo="
           + numberText(bill) + ",BillDt=" + storedDate(bill) + ",PlaceOfServ=" + quoted(bill.state) + ",AppTaxType="
           + quoted(taxWord(bill)) + ",Narr=" + quoted(bill.narration) + " WHERE BillSrNo=" + number(bill.id);
}

/// Tax of the type that is not chosen is never stored, even though it sits in the line's hidden cells.
QString lineValues(const BillDraft &bill, int row, int id, int serial)
{
    const Cells &lines = bill.lines;
    const auto amount = [&](int column) { return number(lines.value(row, column)); };
    const auto amountFor = [&](TaxType type, int column) { return bill.taxType == type ? amount(column) : number(0); };
    const QString period = lines.text(row, PeriodColumn).trimmed();
    return '(' + number(id) + ',' + number(serial) + ',' + quoted(lines.text(row, ParticularsColumn).trimmed()) + ','
           + quoted(lines.text(row, SacColumn).trimmed()) + ',' + quoted(period) + ','
           + (period.isEmpty() ? number(0) : amount(YearColumn)) + ',' + amount(AmountColumn) + ','
           + amount(DiscountColumn) + ',' + amount(NetColumn) + ','
           + quoted(lines.text(row, EditTaxColumn) == QLatin1String("Y") ? QStringLiteral("Y") : QStringLiteral("N"))
           + ',' + amountFor(TaxType::Intra, CgstRateColumn) + ',' + amountFor(TaxType::Intra, CgstColumn) + ','
           + amountFor(TaxType::Intra, SgstRateColumn) + ',' + amountFor(TaxType::Intra, SgstColumn) + ','
           + amountFor(TaxType::Inter, IgstRateColumn) + ',' + amountFor(TaxType::Inter, IgstColumn) + ','
           + amount(TotalColumn) + ')';
}

void writeLines(Connection &db, const BillDraft &bill, SaveResult &result)
{
    if (!db.Execute("Delete From GST_BillD Where BillId=" + number(result.id)))
        result.notIn << QStringLiteral("removal of the earlier lines");
    db.Execute(QStringLiteral("Flush Tables"));
    int serial = 0;
    for (const QString &values : billLineValues(bill, result.id)) {
        ++serial;
        if (!db.Execute("Insert Into GST_BillD Values " + values))
            result.notIn << QStringLiteral("line %1").arg(serial);
        db.Execute(QStringLiteral("Flush Tables"));
    }
}

SaveResult saveHeader(Connection &db, const BillDraft &bill)
{
    if (bill.id > 0) {
        const bool updated = db.Execute(updateHeader(bill)) && db.affectedRows() > 0;
        db.Execute(QStringLiteral("Flush Tables"));
        return {bill.id, updated, {}};
    }
    const InsertResult inserted =
        insertUnderNewId(db, QStringLiteral("GST_BillM"), QStringLiteral("BillSrNo"), [&](int id) -> QString {
            return "Insert Into GST_BillM Values " + billHeaderValues(bill, id);
        });
    return {inserted.id, inserted.inserted, {}};
}

BillFault notWaitedFor()
{
    return {QLatin1String(notWaitedForMessage), QStringLiteral("cmdupdate")};
}

} // namespace

std::optional<BillFault> storedFault(Connection &db, const BillDraft &bill)
{
    if (bill.id > 0) {
        Recordset received = db.Open("Select sum(Amount+Discount) from GST_RecpD Where BillId=" + number(bill.id));
        if (db.wasInterrupted())
            return notWaitedFor();
        if (received.next() && received.number(0) > bill.lines.value(billTotalRow, TotalColumn))
            return BillFault{
                QStringLiteral("Bill amount is less than Total Amount of Receipt Issued against this Bill."),
                QStringLiteral("vsB"), billFixedRows, AmountColumn};
    }
    Recordset sameNumber = db.Open(sameSeries(bill) + " and BillNo=" + numberText(bill) + exceptItself(bill));
    if (db.wasInterrupted())
        return notWaitedFor();
    if (sameNumber.next())
        return BillFault{QStringLiteral("Duplicate Bill No."), QStringLiteral("txtbillno")};
    return std::nullopt;
}

std::optional<Neighbour> lowerWithLaterDate(Connection &db, const BillDraft &bill)
{
    return nearestBill(db, sameSeries(bill) + " and (BillNo<" + numberText(bill) + " and BillDt>" + storedDate(bill)
                               + ')' + exceptItself(bill) + " Order by BillNo DESC,BillSrNo");
}

std::optional<Neighbour> higherWithEarlierDate(Connection &db, const BillDraft &bill)
{
    return nearestBill(db, sameSeries(bill) + " and (BillNo>" + numberText(bill) + " and BillDt<" + storedDate(bill)
                               + ')' + exceptItself(bill) + " Order by BillNo ASC,BillSrNo");
}

QString billHeaderValues(const BillDraft &bill, int id)
{
    return '(' + number(id) + ',' + number(bill.firmId) + ',' + number(bill.year) + ',' + quoted(bill.code) + ','
           + number(bill.seriesId) + ',' + numberText(bill) + ',' + storedDate(bill) + ',' + quoted(bill.state) + ','
           + quoted(taxWord(bill)) + ',' + quoted(bill.narration) + ')';
}

QStringList billLineValues(const BillDraft &bill, int id)
{
    QStringList values;
    for (int row = billFixedRows; row < bill.lines.rows(); ++row) {
        if (!bill.lines.text(row, ParticularsColumn).trimmed().isEmpty())
            values << lineValues(bill, row, id, int(values.size()) + 1);
    }
    return values;
}

SaveResult saveBill(Connection &db, const BillDraft &bill)
{
    SaveResult result = saveHeader(db, bill);
    if (!result.headerIn) {
        result.notIn << QStringLiteral("the bill");
        return result;
    }
    writeLines(db, bill, result);
    return result;
}

bool deleteBill(Connection &db, int id)
{
    const bool linesGone = db.Execute("Delete from GST_BillD Where BillId=" + number(id));
    db.Execute(QStringLiteral("Flush Tables"));
    const bool headerGone = db.Execute("Delete from GST_BillM Where BillSrNo=" + number(id));
    db.Execute(QStringLiteral("Flush Tables"));
    return linesGone && headerGone;
}

bool hasReceipts(Connection &db, int billId)
{
    return db.Open("Select * from GST_RecpD Where BillId=" + number(billId)).next();
}

int highestBillNumber(Connection &db, int firmId, int year)
{
    Recordset highest =
        db.Open("Select Max(BillNo) from GST_BillM Where FirmId=" + number(firmId) + " and FYr=" + number(year));
    return highest.next() ? int(highest.integer(0)) : 0;
}

void readBillLines(Connection &db, int billId, TaxType type, Cells &lines)
{
    Recordset stored = db.Open("Select * from GST_BillD Where BillId=" + number(billId) + " order by SrNo");
    while (stored.next()) {
        const int row = lines.addRow();
        const auto put = [&](int column, const char *name) {
            lines.setText(row, column, stored.text(QLatin1String(name)));
        };
        const auto putAmount = [&](int column, const char *name) {
            lines.setText(row, column, plainNumber(stored.number(QLatin1String(name))));
        };
        lines.setText(row, SrNoColumn, QString::number(row - billTotalRow));
        put(ParticularsColumn, "part");
        put(SacColumn, "SAC");
        put(PeriodColumn, "YrType");
        if (stored.integer(QStringLiteral("Yr")) > 0)
            put(YearColumn, "Yr");
        putAmount(AmountColumn, "ServAmt");
        putAmount(DiscountColumn, "DiscAmt");
        putAmount(NetColumn, "TaxServAmt");
        lines.setText(row, EditTaxColumn,
                      stored.text(QStringLiteral("FlagEdit")) == QLatin1String("Y") ? QStringLiteral("Y")
                                                                                    : QStringLiteral("N"));
        if (type == TaxType::Intra) {
            putAmount(CgstRateColumn, "RtCGST");
            putAmount(CgstColumn, "CGST");
            putAmount(SgstRateColumn, "RtSGST");
            putAmount(SgstColumn, "SGST");
        } else if (type == TaxType::Inter) {
            putAmount(IgstRateColumn, "RtIGST");
            putAmount(IgstColumn, "IGST");
        }
        putAmount(TotalColumn, "TotalAmt");
    }
}

Recordset billsOfYear(Connection &db, int firmId, int year, int id)
{
    return db.Open("Select * from GST_BillM Where FirmId=" + number(firmId) + " and FYr=" + number(year)
                   + (id != 0 ? QString(" AND BillSrNo=" + number(id)) : QString()));
}

PendingQuery billTotals(Connection &db, const QString &ids)
{
    return db.send("Select BillId,SUM(TotalAmt) AS TotBillAmt from GST_BillD Where BillId IN (" + ids
                   + ") GROUP BY BillId ORDER BY BillId");
}

std::optional<StoredDocument> billAsStored(Connection &db, int billId)
{
    return storedDocument(db.Open("Select * from GST_BillM Where BillSrNo=" + number(billId)),
                          db.Open("Select * from GST_BillD Where BillId=" + number(billId) + " Order By SrNo"));
}

QStringList earlierParticulars(Connection &db)
{
    return firstColumn(db.Open(QStringLiteral("Select distinct Part from GST_BillD WHERE Part<>'' Order by Part")));
}

QStringList earlierNarrations(Connection &db)
{
    return firstColumn(db.Open(
        QStringLiteral("Select distinct Narr from GST_BillM WHERE Narr<>'' AND Narr IS NOT NULL Order by Narr")));
}

} // namespace ledgora
