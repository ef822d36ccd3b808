#pragma once

#include "bills/BillChecks.h"

namespace ledgora::test {

/// What was typed into one line: texts of cells by column.
using TypedLine = std::vector<std::pair<int, QString>>;

/// A bill of 2024-25 without a fault, as the entry screen hands it over: ten lines, the first ones typed in.
inline BillDraft draftOf(const std::vector<TypedLine> &lines = {{{ParticularsColumn, "Audit"}, {AmountColumn, "1000"}}},
                         std::optional<TaxType> type = TaxType::Intra)
{
    BillDraft bill;
    bill.firmId = 1;
    bill.year = 2024;
    bill.code = "C1";
    bill.number = "1";
    bill.date = "01/05/2024";
    bill.state = "GUJARAT";
    bill.taxType = type;
    ADDDEFROWSB(bill.lines);
    for (size_t i = 0; i < lines.size(); ++i) {
        for (const auto &[column, text] : lines[i])
            bill.lines.setText(billFixedRows + int(i), column, text);
    }
    GETTOTSBILL(bill.lines, type);
    return bill;
}

} // namespace ledgora::test
