#include "receipts/ReceiptStore.h"

#include "store/Dates.h"
#include "store/NewId.h"
#include "store/NumberFormat.h"
#include "store/SqlText.h"

namespace ledgora {

namespace {

QString storedDate(const ReceiptDraft &receipt)
{
    return quoted(CONVERTTOSAVE(receipt.date));
}

/// The number as SQL: only digits can have passed the checks.
QString numberText(const ReceiptDraft &receipt)
{
    return number(Val(receipt.number));
}

QString sameSeries(const ReceiptDraft &receipt)
{
    return "Select * from GST_RecpM Where FirmId=" + number(receipt.firmId) + " and FYr=" + number(receipt.year)
           + " and RecpSerId=" + number(receipt.seriesId);
}

QString exceptItself(const ReceiptDraft &receipt)
{
    return receipt.id > 0 ? QString(" and RecpSrNo<>" + number(receipt.id)) : QString();
}

std::optional<Neighbour> nearestReceipt(Connection &db, const QString &query)
{
    return firstNeighbour(db.Open(query), QStringLiteral("RecpNo"), QStringLiteral("RecpDt"));
}

/// The money block as it is stored: only what belongs to the mode.
struct StoredMoney
{
    QString cash, mode, other, bankName, bankBranch, paperNumber, paperDate;
};

StoredMoney moneyOf(const ReceiptDraft &receipt)
{
    const bool bank = hasBank(receipt.mode);
    const QString name = hasDescription(receipt.mode) ? receipt.description : receipt.bankName;
    return {.cash = number(receipt.cash),
            .mode = quoted(QString::number(int(receipt.mode))),
            .other = number(receipt.mode == PayMode::None ? 0.0 : receipt.otherAmount),
            .bankName = quoted(receipt.mode == PayMode::None ? QString() : name),
            .bankBranch = quoted(bank ? receipt.bankBranch : QString()),
            .paperNumber = quoted(bank ? receipt.paperNumber : QString()),
            .paperDate = quoted(bank ? settledPaperDate(receipt.paperDate) : QString())};
}

QString updateHeader(const ReceiptDraft &receipt)
{
    const StoredMoney money = moneyOf(receipt);
    return "UPDATE GST_RecpM SET Code_No=" + quoted(receipt.code) + ",RecpSerId=" + number(receipt.seriesId)
           + ",RecpNo=" + numberText(receipt) + ",RecpDt=" + storedDate(receipt) + ",Cash=" + money.cash
           + ",PayMode=" + money.mode + ",OthAmt=" + money.other + ",BankNm=" + money.bankName
           + ",BankBr=" + money.bankBranch + ",ChqNo=" + money.paperNumber + ",ChqDt=" + money.paperDate
           + ",Narr=" + quoted(receipt.narration) + " WHERE RecpSrNo=" + number(receipt.id);
}

void writeLines(Connection &db, const ReceiptDraft &receipt, SaveResult &result)
{
    if (!db.Execute("Delete From GST_RecpD Where RecpId=" + number(result.id)))
        result.notIn << QStringLiteral("removal of the earlier lines");
    db.Execute(QStringLiteral("Flush Tables"));
    int serial = 0;
    for (const ReceiptRow &row : receipt.rows) {
        if (!row.isInUse())
            continue;
        ++serial;
        if (!db.Execute("Insert Into GST_RecpD Values " + receiptLineValues(row, result.id, serial)))
            result.notIn << QStringLiteral("line %1").arg(serial);
        db.Execute(QStringLiteral("Flush Tables"));
    }
}

SaveResult saveHeader(Connection &db, const ReceiptDraft &receipt)
{
    if (receipt.id > 0) {
        const bool updated = db.Execute(updateHeader(receipt)) && db.affectedRows() > 0;
        db.Execute(QStringLiteral("Flush Tables"));
        return {receipt.id, updated, {}};
    }
    const InsertResult inserted =
        insertUnderNewId(db, QStringLiteral("GST_RecpM"), QStringLiteral("RecpSrNo"), [&](int id) {
            return QString("Insert Into GST_RecpM Values " + receiptHeaderValues(receipt, id));
        });
    return {inserted.id, inserted.inserted, {}};
}

QStringList earlierTexts(Connection &db, const QString &column, const QString &where = {})
{
    return firstColumn(db.Open("Select distinct " + column + " from GST_RecpM WHERE " + where + column + "<>'' AND "
                               + column + " IS NOT NULL Order by " + column));
}

QString ofPapers()
{
    return QStringLiteral("PayMode IN ('1','2','3') AND ");
}

} // namespace

QString receiptHeaderValues(const ReceiptDraft &receipt, int id)
{
    const StoredMoney money = moneyOf(receipt);
    return '(' + number(id) + ',' + number(receipt.firmId) + ',' + number(receipt.year) + ',' + quoted(receipt.code)
           + ',' + number(receipt.seriesId) + ',' + numberText(receipt) + ',' + storedDate(receipt) + ',' + money.cash
           + ',' + money.mode + ',' + money.other + ',' + money.bankName + ',' + money.bankBranch + ','
           + money.paperNumber + ',' + money.paperDate + ',' + quoted(receipt.narration) + ')';
}

QString receiptLineValues(const ReceiptRow &row, int id, int serial)
{
    return '(' + number(id) + ',' + number(serial) + ',' + number(row.billId) + ',' + number(row.amount) + ','
           + number(row.discount) + ',' + number(row.tds) + ')';
}

std::optional<ReceiptFault> storedFault(Connection &db, const ReceiptDraft &receipt)
{
    Recordset sameNumber = db.Open(sameSeries(receipt) + " and RecpNo=" + numberText(receipt) + exceptItself(receipt));
    if (db.wasInterrupted())
        return ReceiptFault{QLatin1String(notWaitedForMessage), QStringLiteral("cmdupdate")};
    if (sameNumber.next())
        return ReceiptFault{QStringLiteral("Duplicate Receipt No."), QStringLiteral("txtrecpno")};
    return std::nullopt;
}

std::optional<Neighbour> lowerWithLaterDate(Connection &db, const ReceiptDraft &receipt)
{
    return nearestReceipt(db, sameSeries(receipt) + " and (RecpNo<" + numberText(receipt) + " and RecpDt>"
                                  + storedDate(receipt) + ')' + exceptItself(receipt)
                                  + " Order by RecpNo DESC,RecpSrNo");
}

std::optional<Neighbour> higherWithEarlierDate(Connection &db, const ReceiptDraft &receipt)
{
    return nearestReceipt(db, sameSeries(receipt) + " and (RecpNo>" + numberText(receipt) + " and RecpDt<"
                                  + storedDate(receipt) + ')' + exceptItself(receipt)
                                  + " Order by RecpNo ASC,RecpSrNo");
}

SaveResult saveReceipt(Connection &db, const ReceiptDraft &receipt)
{
    SaveResult result = saveHeader(db, receipt);
    if (!result.headerIn) {
        result.notIn << QStringLiteral("the receipt");
        return result;
    }
    writeLines(db, receipt, result);
    return result;
}

bool deleteReceipt(Connection &db, int id)
{
    const bool linesGone = db.Execute("Delete from GST_RecpD Where RecpId=" + number(id));
    db.Execute(QStringLiteral("Flush Tables"));
    const bool headerGone = db.Execute("Delete from GST_RecpM Where RecpSrNo=" + number(id));
    db.Execute(QStringLiteral("Flush Tables"));
    return linesGone && headerGone;
}

int highestReceiptNumber(Connection &db, int firmId, int year)
{
    Recordset highest =
        db.Open("Select Max(RecpNo) from GST_RecpM Where FirmId=" + number(firmId) + " and FYr=" + number(year));
    return highest.next() ? int(highest.integer(0)) : 0;
}

std::vector<StoredReceiptRow> receiptLines(Connection &db, int receiptId)
{
    Recordset stored = db.Open("Select * from GST_RecpD WHERE RecpId=" + number(receiptId) + " order by SrNo");
    std::vector<StoredReceiptRow> lines;
    while (stored.next())
        lines.push_back({int(stored.integer(QStringLiteral("SrNo"))),
                         {int(stored.integer(QStringLiteral("BillId"))), stored.number(QStringLiteral("Amount")),
                          stored.number(QStringLiteral("Discount")), stored.number(QStringLiteral("TDS"))}});
    return lines;
}

Recordset receiptsOfYear(Connection &db, int firmId, int year, int id)
{
    return db.Open("Select * from GST_RecpM Where FirmId=" + number(firmId) + " and FYr=" + number(year)
                   + (id != 0 ? QString(" AND RecpSrNo=" + number(id)) : QString()));
}

PendingQuery receiptTotals(Connection &db, const QString &ids)
{
    return db.send("Select RecpId,SUM(Amount) AS TotRecpAmt from GST_RecpD Where RecpId IN (" + ids
                   + ") GROUP BY RecpId ORDER BY RecpId");
}

std::optional<StoredDocument> receiptAsStored(Connection &db, int receiptId)
{
    return storedDocument(db.Open("Select * from GST_RecpM Where RecpSrNo=" + number(receiptId)),
                          db.Open("Select * from GST_RecpD Where RecpId=" + number(receiptId) + " Order By SrNo"));
}

Recordset billsUpTo(Connection &db, int firmId, const QString &code, const QString &date)
{
    return db.Open("Select * from GST_BillM Where FirmId=" + number(firmId) + " and Code_No=" + quoted(code)
                   + " and BillDt<=" + quoted(CONVERTTOSAVE(date)));
}

Recordset receivedOnBills(Connection &db, const QString &billIds, int exceptReceiptId)
{
    return db.Open("Select BillId,SUM(Amount+Discount) AS TotRecpAmt from GST_RecpD Where BillId IN (" + billIds
                   + ") AND RecpId<>" + number(exceptReceiptId) + " GROUP BY BillId ORDER BY BillId");
}

QStringList earlierBankNames(Connection &db)
{
    return earlierTexts(db, QStringLiteral("BankNm"), ofPapers());
}

QStringList earlierBankBranches(Connection &db)
{
    return earlierTexts(db, QStringLiteral("BankBr"), ofPapers());
}

QStringList earlierReceiptNarrations(Connection &db)
{
    return earlierTexts(db, QStringLiteral("Narr"));
}

} // namespace ledgora
