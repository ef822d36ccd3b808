#include "receipts/ReceiptChecks.h"

#include "tests/support/Print.h"
#include <gtest/gtest.h>

namespace ledgora {
namespace {

/// A receipt that breaks every check that the screen makes by itself.
ReceiptDraft faulty()
{
    ReceiptDraft receipt;
    receipt.year = 2024;
    receipt.number = "0123";
    receipt.date = "01/04/2025";
    receipt.cash = 1000;
    receipt.mode = PayMode::Other;
    receipt.rows[3] = {0, 1000, 0, 100};
    return receipt;
}

TEST(ReceiptFaults, AreToldOneByOneInTheirOrder)
{
    struct Step
    {
        const char *message, *field;
        void (*mend)(ReceiptDraft &);
    };
    const Step steps[] = {
        {"Please Select a 'Receiver'.", "txtpartynm", [](ReceiptDraft &r) { r.code = "C1"; }},
        {"Please Specify a Valid Receipt No. (Numeric Only not leading with Zero)", "txtrecpno",
         [](ReceiptDraft &r) { r.number.clear(); }},
        {"Please Specify 'Receipt No.'", "txtrecpno", [](ReceiptDraft &r) { r.number = "12"; }},
        {"Please Specify a Valid 'Receipt Date' between 01/04/2024 and 31/03/2025.", "txtrecpdt",
         [](ReceiptDraft &r) { r.date = "3_/__/____"; }},
        {"Please Specify a Valid 'Receipt Date'.", "txtrecpdt", [](ReceiptDraft &r) { r.date = "31/03/2025"; }},
        {"Total Amount Received Should be Equal to Total Amount - Total TDS i.e. Rs. 900", "txtCash",
         [](ReceiptDraft &r) { r.cash = 900; }},
        {"Please Select a Bill.", "txtBillSN_3", [](ReceiptDraft &r) { r.rows[3].billId = 7; }},
        {"Please specify 'Description' !", "txtOthModeDesc", [](ReceiptDraft &r) { r.rows[3] = {7, 900, 0, 1000}; }},
        {"Total Amount Received Should be Equal to Total Amount - Total TDS i.e. Rs. -100", "txtCash",
         [](ReceiptDraft &r) { r.cash = -100; }},
        {"TDS Amount cannot be greater than Rs.900", "txtTDS_3",
         [](ReceiptDraft &r) {
             r.cash = 0;
             r.rows[3] = {7, 0, 0, 0};
         }},
        {"Please specify atleast one item.", "txtBillSN_0", [](ReceiptDraft &r) { r.rows[3].discount = 50; }},
        {"Please specify 'Description' !", "txtOthModeDesc", [](ReceiptDraft &r) { r.mode = PayMode::Neft; }},
    };
    ReceiptDraft receipt = faulty();
    for (const Step &step : steps) {
        const ReceiptFault fault = receiptFault(receipt).value_or(ReceiptFault{});
        EXPECT_EQ(fault.message, step.message);
        EXPECT_EQ(fault.field, step.field);
        step.mend(receipt);
    }
    EXPECT_FALSE(receiptFault(receipt)) << "a discount alone, without money, by a transfer without a description";
    receipt.otherAmount = 5;
    EXPECT_TRUE(receiptFault(receipt));
    receipt.mode = PayMode::None;
    EXPECT_FALSE(receiptFault(receipt)) << "without another mode its amount does not count";
}

} // namespace
} // namespace ledgora
