#include "receipts/PaymentStore.h"

#include "store/Connection.h"
#include "store/Dates.h"
#include "store/SqlText.h"
#include <QSet>
#include <QStringList>

namespace ledgora {

QString distinctIds(const std::vector<PaymentRow> &rows)
{
    QSet<int> seen{0};
    QStringList ids;
    for (const PaymentRow &row : rows) {
        if (row.amount == 0 && row.discount == 0)
            continue;
        if (const auto before = seen.size(); seen.insert(row.billId), seen.size() > before)
            ids << number(row.billId);
    }
    return ids.join(u',');
}

QHash<int, BillSums> billSums(Connection &db, const QString &billIds)
{
    QHash<int, BillSums> sums;
    if (billIds.isEmpty())
        return sums;
    Recordset rows = db.Open("Select BillId,SUM(TaxServAmt) AS TotTSA,SUM(CGST) AS TotCGST,SUM(SGST) AS TotSGST,"
                             "SUM(IGST) AS TotIGST from GST_BillD Where BillId IN ("
                             + billIds + ") GROUP BY BillId");
    sums.reserve(rows.recordCount());
    while (rows.next())
        sums.insert(int(rows.integer(0)), {rows.number(1), rows.number(2), rows.number(3), rows.number(4)});
    return sums;
}

std::vector<BillPayment> paymentsOn(Connection &db, const QString &billIds, const QString &lastDate)
{
    std::vector<BillPayment> payments;
    if (billIds.isEmpty())
        return payments;
    Recordset rows = db.Open(
        "Select GST_RecpD.BillId,GST_RecpM.RecpSrNo,GST_RecpM.RecpDt,GST_RecpM.RecpNo,Sum(GST_RecpD.Amount) as TotA,"
        "Sum(GST_RecpD.Discount) as TotD from GST_RecpM INNER Join GST_RecpD ON GST_RecpM.RecpSrNo=GST_RecpD.RecpId "
        "Where GST_RecpD.BillId IN ("
        + billIds + ')' + (lastDate.isEmpty() ? QString() : QString(" and GST_RecpM.RecpDt<=" + quoted(lastDate)))
        + " Group by GST_RecpD.RecpId,GST_RecpD.BillId Order by GST_RecpM.RecpDt,GST_RecpM.RecpNo,Min(GST_RecpD.SrNo),"
          "GST_RecpM.RecpSrNo");
    payments.reserve(size_t(rows.recordCount()));
    while (rows.next())
        payments.push_back({int(rows.integer(0)),
                            int(rows.integer(1)),
                            dateFromStore(rows.text(2)),
                            int(rows.integer(3)),
                            {.amount = rows.number(4), .discount = rows.number(5)}});
    return payments;
}

} // namespace ledgora
