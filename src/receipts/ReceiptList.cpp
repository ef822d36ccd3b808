#include "receipts/ReceiptList.h"

#include "receipts/ReceiptStore.h"

namespace ledgora {

Cells emptyReceiptList()
{
    Cells receipts(ReceiptListColumnCount, 1);
    receipts.setRow(0, {QStringLiteral("RecpSrNo"), QStringLiteral("PartyCode"), QStringLiteral("RecpSerId"),
                        QStringLiteral("Receipt No."), QStringLiteral("Receipt Date"), QStringLiteral("Cash"),
                        QStringLiteral("PayMode"), QStringLiteral("OthAmt"), QStringLiteral("BankNm"),
                        QStringLiteral("BankBr"), QStringLiteral("ChqNo"), QStringLiteral("ChqDt"),
                        QStringLiteral("Narr"), QStringLiteral("Receiver Name"), QStringLiteral("Receipt Amount")});
    return receipts;
}

void loadReceiptList(Connection &db, Cells &receipts, const Cells &parties, int firmId, int year, int id,
                     bool clientWise)
{
    loadDocumentList(receipts, receiptListKind, parties, id, clientWise, receiptsOfYear(db, firmId, year, id),
                     [&db](const QString &ids) { return receiptTotals(db, ids); });
}

} // namespace ledgora
