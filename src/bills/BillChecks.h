#pragma once

#include "bills/BillLines.h"
#include "bills/EntryRules.h"
#include <QString>
#include <optional>

namespace ledgora {

/// A bill as it travels from the screen to the database. Lines are the text of the grid's cells, hidden tax cells of
/// the other type included; amounts become numbers where they are stored.
struct BillDraft : DocumentDraft
{
    QString state; ///< place of supply: name of the state, "" for no choice
    std::optional<TaxType> taxType;
    Cells lines = emptyBillLines();
};

/// The first fault of a bill: what to say and where to point. A line's fault names its cell.
struct BillFault
{
    QString message;
    QString field; ///< object name of the field or grid that gets the focus
    int row = -1;
    int column = -1;
};

/// The head of a bill, in the order in which its faults are told: receiver, number, date, place of supply, tax.
std::optional<BillFault> headFault(const BillDraft &bill);

/// The lines, top to bottom, each by the table of line checks; a bill needs one line at least.
std::optional<BillFault> lineFault(const BillDraft &bill);

} // namespace ledgora
