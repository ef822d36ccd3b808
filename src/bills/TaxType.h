#pragma once

#include <QString>
#include <optional>

namespace ledgora {

/// The kinds of tax that a bill can bear, in the order of the screens' list; "INTRA", "INTER" and "NO" in the database.
enum class TaxType { Intra = 0, Inter = 1, None = 2 };

/// The stored word.
QString taxTypeWord(TaxType type);
/// The type of a stored word; the entry screen takes anything else for intra-state.
TaxType taxTypeOfWord(const QString &word);
/// The type of a list index; nothing for no choice (-1).
std::optional<TaxType> taxTypeOfIndex(int index);

} // namespace ledgora
