#include "receipts/ReceiptChecks.h"

#include "bills/EntryRules.h"
#include "store/Dates.h"
#include "store/NumberFormat.h"
#include <algorithm>

namespace ledgora {

namespace {

using Fault = std::optional<ReceiptFault>;

Fault faultAt(const char *field, const QString &message)
{
    return message.isEmpty() ? Fault() : ReceiptFault{message, QLatin1String(field)};
}

QString rowField(const char *name, size_t row)
{
    return QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(row);
}

Fault receiverFault(const ReceiptDraft &receipt)
{
    return faultAt("txtpartynm", receipt.code.isEmpty() ? QStringLiteral("Please Select a 'Receiver'.") : QString());
}

Fault numberFault(const ReceiptDraft &receipt)
{
    return faultAt("txtrecpno", documentNumberFault(receipt.number, QStringLiteral("Receipt")));
}

Fault dateFault(const ReceiptDraft &receipt)
{
    return faultAt("txtrecpdt", documentDateFault(receipt.date, receipt.year, QStringLiteral("Receipt")));
}

Fault moneyFault(const ReceiptDraft &receipt)
{
    const double due = moneyDue(receipt);
    return faultAt("txtCash", receipt.received() == due
                                  ? QString()
                                  : QStringLiteral("Total Amount Received Should be Equal to Total Amount - Total TDS "
                                                   "i.e. Rs. ")
                                        + plainNumber(due));
}

Fault rowsFault(const ReceiptDraft &receipt)
{
    for (size_t i = 0; i < receipt.rows.size(); ++i) {
        const ReceiptRow &row = receipt.rows[i];
        if (!row.isInUse())
            continue;
        if (row.billId == 0)
            return ReceiptFault{QStringLiteral("Please Select a Bill."), rowField("txtBillSN", i)};
        if (const QString fault = tdsFault(row.amount, row.tds); !fault.isEmpty())
            return ReceiptFault{fault, rowField("txtTDS", i)};
    }
    return std::nullopt;
}

Fault noRowFault(const ReceiptDraft &receipt)
{
    return faultAt("txtBillSN_0", std::ranges::any_of(receipt.rows, &ReceiptRow::isInUse)
                                      ? QString()
                                      : QStringLiteral("Please specify atleast one item."));
}

Fault descriptionFault(const ReceiptDraft &receipt)
{
    return faultAt("txtOthModeDesc", receipt.mode == PayMode::Other && receipt.description.isEmpty()
                                         ? QStringLiteral("Please specify 'Description' !")
                                         : QString());
}

constexpr std::array checks{receiverFault, numberFault, dateFault, moneyFault, rowsFault, noRowFault, descriptionFault};

} // namespace

PayMode payModeOfIndex(int index)
{
    return index >= 0 && index < int(payModeNames.size()) ? PayMode(index) : PayMode::None;
}

PayMode payModeOfText(const QString &stored)
{
    return payModeOfIndex(stored.toInt());
}

double moneyDue(const ReceiptDraft &receipt)
{
    double due = 0;
    for (const ReceiptRow &row : receipt.rows)
        due += row.amount - row.tds;
    return due;
}

std::optional<ReceiptFault> receiptFault(const ReceiptDraft &receipt)
{
    for (const auto check : checks) {
        if (const Fault fault = check(receipt))
            return fault;
    }
    return std::nullopt;
}

std::optional<QString> normalisedAmount(const QString &typed)
{
    if (typed.isEmpty())
        return QString();
    if (!isNumeric(typed) || Val(typed) < 0)
        return std::nullopt;
    return amountText(roundHalfEven(Val(typed)));
}

QString tdsFault(double amount, double tds)
{
    return amount < tds ? QString(QStringLiteral("TDS Amount cannot be greater than Rs.") + plainNumber(amount))
                        : QString();
}

QString amountText(double amount)
{
    return amount == 0 ? QString() : plainNumber(amount);
}

QString settledPaperDate(const QString &typed)
{
    return isWholeDate(typed) ? CONVERTDATE(typed) : QString();
}

} // namespace ledgora
