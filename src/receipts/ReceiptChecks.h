#pragma once

#include "bills/EntryRules.h"
#include <QString>
#include <array>
#include <optional>

namespace ledgora {

/// How money came besides cash; stored as the index, as text.
enum class PayMode { None, Cheque, DemandDraft, PayOrder, Neft, Imps, Rtgs, Other };

inline constexpr std::array payModeNames{"(None)", "Cheque", "Demand Draft", "Pay Order",
                                         "NEFT",   "IMPS",   "RTGS",         "Other"};

/// The mode of a list index or a stored text; None for anything that is no mode.
PayMode payModeOfIndex(int index);
PayMode payModeOfText(const QString &stored);
/// A paper with a bank, a branch, a number and a date; or a transfer with a description.
constexpr bool hasBank(PayMode mode)
{
    return mode >= PayMode::Cheque && mode <= PayMode::PayOrder;
}
constexpr bool hasDescription(PayMode mode)
{
    return mode >= PayMode::Neft;
}

/// One row of a receipt: what it settles of a bill, in whole rupees. `amount` includes the TDS.
struct ReceiptRow
{
    int billId = 0; ///< 0 for none chosen
    double amount = 0, discount = 0, tds = 0;
    bool isInUse() const { return amount != 0 || discount != 0 || tds != 0; }
};

inline constexpr int receiptRowCount = 10;
using ReceiptRows = std::array<ReceiptRow, receiptRowCount>;

/// A receipt as it travels from the screen to the database. Fields that the mode does not have keep what was typed and
/// are left out where the receipt is stored.
struct ReceiptDraft : DocumentDraft
{
    double cash = 0;
    PayMode mode = PayMode::None;
    double otherAmount = 0;
    QString bankName, bankBranch, paperNumber, paperDate, description;
    ReceiptRows rows;

    /// Cash, and the other amount where there is another mode.
    double received() const { return cash + (mode == PayMode::None ? 0 : otherAmount); }
};

/// What the money received must come to: all amounts less all TDS.
double moneyDue(const ReceiptDraft &receipt);

/// The first fault of a receipt: what to say and the field that gets the focus.
struct ReceiptFault
{
    QString message;
    QString field;
};

/// The checks that need no database, in the order in which their faults are told: receiver, number, date, money, rows,
/// description. Whether a row overpays its bill is the business of its fields.
std::optional<ReceiptFault> receiptFault(const ReceiptDraft &receipt);

/// What leaving an amount's box does to it: whole rupees, half to the even one; "" for zero. Nothing for a text that is
/// no amount: not numeric, or negative.
std::optional<QString> normalisedAmount(const QString &typed);
inline constexpr auto invalidAmountMessage = "Please Specify Valid Amount. Numeric Only.";

/// The message for a TDS above the amount of its row, else "".
QString tdsFault(double amount, double tds);

/// The text of an amount's box: "" for zero.
QString amountText(double amount);

/// A typed date of a paper, completed and with its separators; "" for no date. It needs all eight digits.
QString settledPaperDate(const QString &typed);

} // namespace ledgora
