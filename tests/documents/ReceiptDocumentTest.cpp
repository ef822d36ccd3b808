#include "documents/ReceiptDocument.h"

#include "tests/support/Print.h"
#include <QStringList>
#include <gtest/gtest.h>

namespace ledgora {
namespace {

TEST(ReceiptDocument, PaymentSentenceSaysHowTheMoneyCame)
{
    const QString blank =
        "Rs. ________ Through Cash/Cheque/Demand Draft/Pay Order No. ________ Dated ________ Drawn on";
    const struct
    {
        const char *name;
        ReceivedMoney money;
        QString sentence;
    } cases[] = {
        {"cash only", {"500", PayMode::None, "", "", "", "", "", ""}, "Received in Cash Rs. 500"},
        {"cheque only",
         {"", PayMode::Cheque, "900", "771203", "01/06/2024", "SBI", "Fort", ""},
         "Rs. 900 Through Cheque No. 771203 Dated 01/06/2024 Drawn on SBI, Fort"},
        {"both, no branch",
         {"100", PayMode::PayOrder, "900", "1", "", "SBI", "", ""},
         "Received in Cash Rs. 100 and Rs. 900 Through Pay Order No. 1 Dated  Drawn on SBI, "},
        {"another mode without money",
         {"100", PayMode::DemandDraft, "0", "1", "", "SBI", "Fort", ""},
         "Received in Cash Rs. 100"},
        {"no mode", {"", PayMode::None, "900", "", "", "", "", ""}, blank},
        {"no money", {"0", PayMode::Neft, "", "", "", "", "", "UTR 5"}, blank},
        {"transfer", {"", PayMode::Neft, "900", "", "", "", "", "UTR 5"}, "Rs. 900 Through NEFT [UTR 5]"},
        {"transfer, bare", {"", PayMode::Rtgs, "900", "", "", "x", "y", ""}, "Rs. 900 Through RTGS"},
        {"other", {"", PayMode::Other, "900", "", "", "", "", "barter"}, "Rs. 900 Through barter"},
        {"other, bare", {"", PayMode::Other, "900", "", "", "", "", ""}, "Rs. 900"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(paymentSentence(c.money), c.sentence) << c.name;
}

TEST(ReceiptDocument, AdjustmentSentenceTellsOnlyWhatThereIs)
{
    const struct
    {
        ReceiptSums sums;
        const char *sentence; ///< "<" for ESC E and ">" for ESC F
    } cases[] = {
        {{1180, 90, 90, 0, 100},
         "Net Amount of Service(s) <Rs. 1000> CGST <Rs. 90> SGST <Rs. 90>; TDS included <Rs. 100>"},
        {{1180, 0, 0, 180, 0}, "Net Amount of Service(s) <Rs. 1000> IGST <Rs. 180>"},
        {{90, 0, 90, 0, 0}, "SGST <Rs. 90>"},
        {{0, 0, 0, 0, 50}, "; TDS included <Rs. 50>"},
        {{0.5, 0, 0, 0, 0}, "Net Amount of Service(s) <Rs. 0.5>"},
        {{}, ""},
    };
    for (const auto &c : cases)
        EXPECT_EQ(adjustmentSentence(c.sums).replace("\x1B\x45", "<").replace("\x1B\x46", ">"), c.sentence);
}

TEST(ReceiptDocument, PlaceholdersComeInTheOrderThatTemplatesRelyOn)
{
    ReceiptDocument receipt;
    receipt.firm.name = receipt.firm.signName = "aBC";
    receipt.partyName = receipt.partyAddress = "dEF";
    receipt.receiptDate = "01/06/2024";
    receipt.receiptNumber = "R/7";
    receipt.money.cash = "1500";
    receipt.amountReceived = "1500";
    receipt.bills = {{"A/1", "01/05/2024", 1180, 590}, {"2", "02/05/2024", 500.5, 0}};
    receipt.sums.tds = 5;
    receipt.narration = "thanks";
    const QString references = "#BILL_REFERENCES#=Bill No. A/1 Dated 01/05/2024 Amounting Rs. 1180 : Rs. 590\r\n"
                               "Bill No. 2 Dated 02/05/2024 Amounting Rs. 500.5 : Rs. 0";
    QStringList list;
    for (const Placeholder &placeholder : receiptPlaceholders(receipt))
        list += placeholder.name + '=' + std::get<QString>(placeholder.value);
    EXPECT_EQ(list, (QStringList{"#FIRM_NAME#=Abc",
                                 "#FIRM_DESIG#=",
                                 "#FIRM_GSTIN#=",
                                 "#FIRM_PAN#=",
                                 "#PARTY_NAME#=Def",
                                 "#PARTY_GSTIN#=",
                                 "#PARTY_PAN#=",
                                 "#PARTY_ADDRESS#=Def",
                                 "#RCPT_DT#=01/06/2024",
                                 "#RCPT_NO#=R/7",
                                 "#PAYMENT_DETAILS#=Received in Cash Rs. 1500",
                                 references,
                                 "#TOTAMT_ADJ_DETAILS#=; TDS included \x1B\x45Rs. 5\x1B\x46",
                                 "#AMOUNT_WORDS#=Rupees One Thousand Five Hundred Only",
                                 "#AMOUNT#=1500",
                                 "#NOTE#=thanks",
                                 "#AUTHSIGN_NAME#=Abc",
                                 "#AUTHSIGN_DESIG#=",
                                 "#FIRM_ADDRESS#=",
                                 "#FIRM_CONTDET#=",
                                 "#FIRM_EMLWEB#="}));
    EXPECT_EQ(receiptTemplatePath("/t", 12, true, true), "/t/12/GST_Receipt_2Copy.doc");
    EXPECT_EQ(receiptTemplatePath("/t", 12, false, false), "/t/GST_Receipt.doc");
}

} // namespace
} // namespace ledgora
