#include "documents/ReceiptDocument.h"

#include "store/NumberFormat.h"
#include "store/Words.h"

namespace ledgora {

namespace {

constexpr auto boldOn = "\x1B"
                        "E";
constexpr auto boldOff = "\x1B"
                         "F";
constexpr auto blankForm =
    "Rs. ________ Through Cash/Cheque/Demand Draft/Pay Order No. ________ Dated ________ Drawn on";

QString modeName(PayMode mode)
{
    return QString::fromLatin1(payModeNames.at(size_t(mode)));
}

/// What stands behind an amount that did not come in cash.
QString modeDetails(const ReceivedMoney &money)
{
    const QString through = " Through ";
    if (hasBank(money.mode))
        return through + modeName(money.mode) + " No. " + money.paperNumber + " Dated " + money.paperDate + " Drawn on "
               + money.bankName + ", " + money.bankBranch;
    if (money.mode == PayMode::Other) // its own name says nothing
        return money.description.isEmpty() ? QString() : QString(through + money.description);
    return through + modeName(money.mode)
           + (money.description.isEmpty() ? QString() : QString(" [" + money.description + ']'));
}

QString boldAmount(double amount)
{
    return QString::fromLatin1(boldOn) + "Rs. " + plainNumber(amount) + QString::fromLatin1(boldOff);
}

} // namespace

QString paymentSentence(const ReceivedMoney &money)
{
    QString text;
    if (Val(money.cash) != 0)
        text = "Received in Cash Rs. " + money.cash;
    if (money.mode != PayMode::None && Val(money.otherAmount) != 0)
        appendPart(text, " and ", "Rs. " + money.otherAmount + modeDetails(money));
    return text.isEmpty() ? QString::fromLatin1(blankForm) : text;
}

QString billReferences(const std::vector<SettledBill> &bills)
{
    QString text;
    for (const SettledBill &bill : bills)
        appendPart(text, "\r\n",
                   "Bill No. " + bill.number + " Dated " + bill.date + " Amounting Rs. " + plainNumber(bill.billAmount)
                       + " : Rs. " + plainNumber(bill.amount));
    return text;
}

QString adjustmentSentence(const ReceiptSums &sums)
{
    const struct
    {
        const char *name;
        double amount;
    } parts[] = {{"Net Amount of Service(s) ", sums.amount - sums.cgst - sums.sgst - sums.igst},
                 {"CGST ", sums.cgst},
                 {"SGST ", sums.sgst},
                 {"IGST ", sums.igst}};
    QString text;
    for (const auto &[name, amount] : parts) {
        if (amount != 0)
            appendPart(text, " ", name + boldAmount(amount));
    }
    if (sums.tds != 0)
        text += "; TDS included " + boldAmount(sums.tds);
    return text;
}

std::vector<Placeholder> receiptPlaceholders(const ReceiptDocument &receipt)
{
    Placeholders list;
    addHead(list, receipt);
    list.add("RCPT_DT", receipt.receiptDate);
    list.add("RCPT_NO", receipt.receiptNumber);
    list.add("PAYMENT_DETAILS", paymentSentence(receipt.money));
    list.add("BILL_REFERENCES", billReferences(receipt.bills));
    list.add("TOTAMT_ADJ_DETAILS", adjustmentSentence(receipt.sums));
    list.add("AMOUNT_WORDS", "Rupees " + CONVERTTOWORD(plainNumber(Val(receipt.amountReceived))));
    list.add("AMOUNT", receipt.amountReceived);
    list.add("NOTE", receipt.narration);
    addSignature(list, receipt);
    addFirmTexts(list, receipt.firm);
    return list.take();
}

QString receiptTemplatePath(const QString &templateFolder, int firmId, bool customized, bool twoCopies)
{
    return templatePath(templateFolder, firmId, customized, "GST_Receipt", twoCopies);
}

} // namespace ledgora
