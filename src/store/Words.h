#pragma once

#include <QString>

namespace ledgora {

/// An amount (plain digits with at most one ".") in Indian words with single blanks: "One Rupee Only", "Nil",
/// "Fifty Paisa", "Ten Lac Only". A single decimal counts as tens of paise, a third is dropped. What stands above the
/// crores (ten digits and more) is lost, and logged: there is no word for it.
QString CONVERTTOWORD(const QString &amount);

QString CONVERTHUNDREDS(const QString &digits); ///< up to three digits
QString CONVERTTENS(const QString &digits);     ///< two digits
QString CONVERTDIGIT(const QString &digit);     ///< one digit, "" for 0 and anything else

/// Each word capitalised, the rest lower case; a word begins after white space only.
QString properCase(const QString &text);
/// A name as the office wants names on paper: in proper case, else in upper case.
QString inNameCase(bool proper, const QString &text);

} // namespace ledgora
