#pragma once

#include <QString>

namespace ledgora {

class Connection;

enum class PanFault { None, Shape, FourthCharacter };

/// PAN by the Income-tax department's shape AAAAA9999A, capitals only, fourth letter the kind of holder; empty and
/// the words PANNOTAVBL, PANINVALID, PANAPPLIED (any case) pass.
PanFault panFault(const QString &text);

/// The bare shapes, as characters 3 to 12 of a GSTIN show them: AAAAA9999A of a PAN, AAAA99999A of a TAN (a deductor of
/// tax). Capitals only, nothing empty.
bool hasPanShape(QStringView text);
bool hasTanShape(QStringView text);

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

/// Empty, or an "@" with at least one character between it and the first "." behind it. What stands before the "@" and
/// behind the "." is not looked at. Blanks around the address do not count.
bool isEmailAddress(const QString &text);
/// The message for a refused address.
QString emailMessage();

/// What a client's Code No. is tested for.
struct CodeNoTests
{
    bool required = true;      ///< an empty code is refused
    int maxLength = 0;         ///< in characters; 0 for no limit
    bool onlyAllowed = true;   ///< only A-Z, 0-9 and "-"
    bool reservedWords = true; ///< no device name of Windows: offices keep a folder for each code
    bool unique = true;        ///< not yet given to a client of the host or an other client of the older side
};

/// The fault of a Code No. as the message to show, or "" when it may be used. The tests run in the order of their
/// fields. `hostCode` says which table holds the host's clients; the server's collation decides what is the same code.
QString VALIDATECODENO(Connection &db, const QString &hostCode, const QString &code, const CodeNoTests &tests = {});

} // namespace ledgora
