#pragma once

#include "documents/FirmTexts.h"
#include "receipts/ReceiptChecks.h"

namespace ledgora {

/// How the money of a receipt came: amounts as they were entered, "" where a field is empty.
struct ReceivedMoney
{
    QString cash;
    PayMode mode = PayMode::None;
    QString otherAmount, paperNumber, paperDate, bankName, bankBranch, description;
};

/// A bill that a receipt settles, and how much of it.
struct SettledBill
{
    QString number; ///< as printed, series included
    QString date;   ///< DD/MM/YYYY
    double billAmount = 0;
    double amount = 0; ///< of the receipt's row; discount and TDS are not told
};

/// Sums over all rows of a receipt, in rupees, those of bills that are gone included. TDS and taxes lie in the amount.
struct ReceiptSums
{
    double amount = 0, cgst = 0, sgst = 0, igst = 0, tds = 0;
};

/// Everything a receipt's document shows, whatever its source: the entry screen as it stands, or the stored receipt.
struct ReceiptDocument : DocumentHead
{
    QString receiptDate;   ///< DD/MM/YYYY
    QString receiptNumber; ///< as printed, series included
    ReceivedMoney money;
    QString amountReceived; ///< as it is shown: "" on a screen that shows nothing
    std::vector<SettledBill> bills;
    ReceiptSums sums;
    QString narration;
};

/// How the money came: "Received in Cash Rs. 500 and Rs. 1000 Through Cheque No. ...". Without any money a form to be
/// filled by hand.
QString paymentSentence(const ReceivedMoney &money);

/// One line for each bill: "Bill No. 7 Dated 01/06/2018 Amounting Rs. 1180 : Rs. 590"; CR LF between them.
QString billReferences(const std::vector<SettledBill> &bills);

/// How the total splits into net amount, taxes and TDS; every amount between ESC E and ESC F, which the engine shows in
/// bold.
QString adjustmentSentence(const ReceiptSums &sums);

/// The replacements in their order.
std::vector<Placeholder> receiptPlaceholders(const ReceiptDocument &receipt);

/// File of the receipt template: "GST_Receipt.doc" or "GST_Receipt_2Copy.doc" in the template folder, or in the
/// company's sub-folder when its own templates are in use.
QString receiptTemplatePath(const QString &templateFolder, int firmId, bool customized, bool twoCopies);

} // namespace ledgora
