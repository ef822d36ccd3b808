#include "documents/StoredBill.h"

#include "bills/DocumentList.h"
#include "documents/StoredIds.h"
#include "store/Connection.h"
#include "store/Dates.h"
#include "store/DocumentNumber.h"
#include "store/StateList.h"
#include <initializer_list>

namespace ledgora {

namespace {

std::optional<TaxType> exactTaxType(const QString &word)
{
    for (const TaxType type : {TaxType::Intra, TaxType::Inter, TaxType::None}) {
        if (word == taxTypeWord(type))
            return type;
    }
    return std::nullopt;
}

BillDocumentLine storedLine(const Recordset &stored)
{
    BillDocumentLine line;
    line.particulars = stored.text("part");
    line.sac = line.sacAlone = stored.text("SAC");
    line.yearType = stored.text("YrType");
    line.year = stored.number("Yr");
    line.yearShown = financialYearText(int(stored.integer("Yr")));
    for (const auto &[value, column] :
         std::initializer_list<std::pair<double *, const char *>>{{&line.amount, "ServAmt"},
                                                                  {&line.discount, "DiscAmt"},
                                                                  {&line.net, "TaxServAmt"},
                                                                  {&line.cgstRate, "RtCGST"},
                                                                  {&line.cgst, "CGST"},
                                                                  {&line.sgstRate, "RtSGST"},
                                                                  {&line.sgst, "SGST"},
                                                                  {&line.igstRate, "RtIGST"},
                                                                  {&line.igst, "IGST"},
                                                                  {&line.total, "TotalAmt"}})
        *value = stored.number(QString::fromLatin1(column));
    return line;
}

/// Tax of a type that is not the bill's counts in no sum.
void addToTotals(BillDocument::Totals &totals, TaxType taxType, const BillDocumentLine &line)
{
    totals.amount += line.amount;
    totals.discount += line.discount;
    totals.net += line.net;
    if (taxType == TaxType::Intra) {
        totals.cgst += line.cgst;
        totals.sgst += line.sgst;
    } else if (taxType == TaxType::Inter)
        totals.igst += line.igst;
    totals.total += line.total;
}

StoredBill storedHeader(const Recordset &stored, const SeriesNumbers &series, DocumentParties &parties)
{
    StoredBill bill;
    bill.id = int(stored.integer("BillSrNo"));
    bill.date = dateFromStore(stored.text("BillDt"));
    bill.taxType = exactTaxType(stored.text("AppTaxType"));
    BillDocument &document = bill.document;
    document.taxType = bill.taxType.value_or(TaxType::None);
    bill.hasParty = parties.fill(document, stored.text("Code_No"), int(stored.integer("FYr")));
    const QString place = stored.text("PlaceOfServ");
    document.placeOfSupply = place + " (" + GETSTATECODEFORNAMEONLYGST(place) + ')';
    document.billDate = CONVERTDATE(listedDate(stored.text("BillDt")));
    document.billNumber = series.printed(int(stored.integer("BillSerId")), stored.text("BillNo"));
    document.narration = stored.text("Narr");
    return bill;
}

} // namespace

std::vector<StoredBill> storedBills(Connection &db, const QList<int> &ids, DocumentParties &parties)
{
    if (ids.isEmpty())
        return {};
    const SeriesNumbers series(db);
    InOrderOfIds<StoredBill> bills(ids);
    Recordset headers = db.Open("Select * from GST_BillM Where BillSrNo IN (" + idList(ids) + ')');
    while (headers.next())
        bills.put(storedHeader(headers, series, parties));
    Recordset lines = db.Open("Select * from GST_BillD Where BillId IN (" + idList(ids) + ") order by BillId,SrNo");
    while (lines.next()) {
        StoredBill *bill = bills.find(int(lines.integer("BillId")));
        if (!bill)
            continue;
        bill->document.lines.push_back(storedLine(lines));
        addToTotals(bill->document.totals, bill->document.taxType, bill->document.lines.back());
    }
    return bills.take();
}

} // namespace ledgora
