// The tax inside a payment: the worked examples of the rule, the order in which receipts count, and the told array.

#include "receipts/PaymentSplit.h"
#include "host/WorkingState.h"
#include "receipts/ReceiptTaxTable.h"
#include "tests/support/Database.h"
#include "tests/support/Log.h"
#include "tests/support/Print.h"
#include <gtest/gtest.h>

using namespace ledgora;
using namespace ledgora::test;

namespace {

const BillSums bill1180{1000, 90, 90, 0}, bill1150{1000, 75, 75, 0}, bill1000{750, 125, 125, 0}, exempt{1000, 0, 0, 0};
constexpr auto none = std::nullopt;

TEST(TaxInsidePayment, OfTheWorkedExamples)
{
    struct Case
    {
        const char *name;
        BillSums bill;
        std::vector<EarlierPayment> earlier;
        std::vector<PaymentRow> rows; // all on one bill
        std::vector<PaymentSplit> splits;
    };
    const TaxShare nothing;
    const Case cases[] = {
        {"half of the bill", bill1180, {}, {{1, 590, 0}}, {{{590, 45, 45, none}, nothing}}},
        {"7.5 goes up", bill1150, {}, {{1, 115, 0}}, {{{115, 8, 8, none}, nothing}}},
        {"67.5 goes up and is cut to what is left",
         bill1150,
         {{115, 0}},
         {{1, 1035, 0}},
         {{{1035, 67, 67, none}, nothing}}},
        {"two rows of one receipt, the second overpays",
         bill1150,
         {},
         {{1, 115, 0}, {1, 2000, 0}, {1, 5, 5}},
         {{{115, 8, 8, none}, nothing}, {{1035, 67, 67, none}, nothing}, {nothing, nothing}}},
        {"a discount of 13.5 carries 14, of 12.5 carries 12",
         bill1000,
         {},
         {{1, 0, 108}, {1, 0, 100}},
         {{nothing, {108, 14, 14, none}}, {nothing, {100, 12, 12, none}}}},
        {"an amount of 12.5 carries 13", bill1000, {}, {{1, 100, 100}}, {{{100, 13, 13, none}, {100, 12, 12, none}}}},
        {"so does an earlier receipt's discount",
         bill1000,
         {{0, 100}},
         {{1, 900, 0}},
         {{{900, 112, 112, none}, nothing}}},
        {"a discount a hair above 112.5 carries 113",
         {2500, 225, 225, 0},
         {},
         {{1, 0, 1475}},
         {{nothing, {1475, 113, 113, none}}}},
        {"exempt", exempt, {}, {{1, 400, 100}}, {{{400, none, none, none}, {100, none, none, none}}}},
        {"a rupee without tax", bill1180, {}, {{1, 1, 0}}, {{{1, 0, 0, none}, nothing}}},
        {"all tax used up before the bill is paid: the share still shows",
         {6, 2, 2, 0},
         {},
         {{1, 3, 0}, {1, 3, 0}, {1, 3, 0}, {1, 3, 0}},
         {{{3, 1, 1, none}, nothing},
          {{3, 1, 1, none}, nothing},
          {{3, 1, 1, none}, nothing},
          {{1, 0, 0, none}, nothing}}},
    };
    for (const Case &c : cases)
        EXPECT_EQ(splitOnBill(c.bill, c.earlier, c.rows), c.splits) << c.name;
}

TEST(TaxInsidePayment, IsToldInTheArrayForTheReceiptsPlaceAmongTheOthers)
{
    Database data;
    const Log log;
    data.run("Insert Into GST_BillD (BillId,SrNo,TaxServAmt,CGST,SGST) Values (1,1,700,75,0),(1,2,300,NULL,75)");
    data.run("Insert Into GST_RecpM (RecpSrNo,RecpDt,RecpNo) Values (1,'2024-05-02',4),(2,'2024-05-02',6)");
    data.run("Insert Into GST_RecpD Values (1,1,1,115,0,0),(2,1,1,1000,0,0)");
    struct Case
    {
        const char *name, *date;
        int id, number;
        QStringList row; ///< fields 1 to 3
        QStringList split;
    };
    const Case cases[] = {
        {"between two of its day", "02/05/2024", 0, 5, {"1", "1035", ""}, {"1035", "67", "67"}},
        {"the day before", "01/05/2024", 0, 5, {"1", "1035", ""}, {"1035", "68", "68"}},
        {"no number: all of its day came before", "02/05/2024", 0, 0, {"1", "1035", ""}, {"35", "2", "2"}},
        {"no date: the latest of all", "", 0, 5, {"1", "1035", ""}, {"35", "2", "2"}},
        {"modified and dated later, it does not meet itself",
         "09/05/2024",
         2,
         6,
         {"1", "1035", ""},
         {"1035", "67", "67"}},
        {"sums as they were typed", "01/05/2024", 0, 5, {"1 x", "115.50 ", "-"}, {"115.5", "8", "8"}},
        {"sums that are no numbers", "01/05/2024", 0, 5, {"1", "x", "-"}, {}},
        {"an id beyond all ids", "01/05/2024", 0, 5, {"4294967297", "10", ""}, {}},
        {"a bill that is gone", "01/05/2024", 0, 5, {"9", "10", ""}, {}},
    };
    gCnn = &data.db();
    for (const Case &c : cases) {
        ReceiptTaxTable table(2);
        for (int field = 1; field <= 3; ++field)
            table(field, 2) = c.row[field - 1];
        CALCRECPTAXGST(c.id, c.date, c.number, table);
        QStringList split;
        for (int field = ReceiptTaxTable::AmountApplied; field < ReceiptTaxTable::FieldEnd; ++field)
            split << table(field, 2);
        split.removeAll(QString());
        EXPECT_EQ(split, c.split) << c.name;
        EXPECT_EQ(table(ReceiptTaxTable::AmountApplied, 1), "") << c.name;
    }
    gCnn = nullptr;
    EXPECT_TRUE(log.isEmpty());
}

} // namespace
