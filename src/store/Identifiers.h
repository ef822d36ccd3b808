#pragma once

#include <QString>

namespace ledgora {

enum class PanFault { None, Shape, FourthCharacter };

/// PAN by the Income-tax department's shape AAAAA9999A, capitals only, fourth letter the kind of holder; empty and
/// the words PANNOTAVBL, PANINVALID, PANAPPLIED (any case) pass.
PanFault panFault(const QString &text);

/// Exactly 15 characters of A-Z and 0-9. No check digit is tested: offices hold numbers with a wrong last digit.
bool IsGstinShape(const QString &text);

/// Empty, or four letters, a zero, six letters or digits.
bool isIfsCode(const QString &text);
/// The message for a refused IFS code.
QString ifsCodeMessage();

/// The fault of a GSTIN against state and PAN of its holder, as the message to show, or "". `stateCode` is the
/// two-character code of the state ("" when unknown: not compared); `stateShown` stands in the message. Compares the
/// first two characters with the code, characters 3 to 12 with a PAN that is not empty.
QString gstinStateFault(const QString &gstin, const QString &stateCode, const QString &stateShown);
QString gstinPanFault(const QString &gstin, const QString &pan);

} // namespace ledgora
