#pragma once

#include <QString>

namespace ledgora {

/// A number by a pattern: "###0", "000000", "0.00", "#,##0.00", "###0.0000" and sections "positive;negative;zero".
/// Takes the double to 15 significant decimal digits first, then rounds half away from zero: 100 at 14.5 % is 14.5
/// although the double product lies a hair below, and formats as 15. Never "-0". Grouping in threads of three;
/// Indian grouping is `FORMETGEN`'s. The section is chosen by the rounded value.
QString formatNumber(double value, const QString &pattern);

/// The value of `formatNumber(value, "###0")`: whole rupees, half away from zero.
double wholeRupees(double value);

/// The Round function to a whole number: half to the even number, on the double as it is.
double roundHalfEven(double value);

/// The plain general form: up to 15 significant digits, no exponent, no grouping, no trailing zeros, "." as point in
/// every locale, never "-0".
QString plainNumber(double value);

/// The longest numeric prefix (blanks, one sign, ASCII digits with at most one "."), else 0: "12abc" is 12.
double Val(const QString &text);

/// Blanks, one sign, ASCII digits with at most one "." and at least one digit, at most 15 digits; nothing else, so
/// "1,000" is not numeric. Empty text is not numeric.
bool isNumeric(const QString &text);

/// `format` applied to `value` ("" counts as 0); where the format holds "#," the digits before the point are grouped
/// by the Indian system (12,34,567.00), commas standing only between digits.
QString FORMETGEN(const QString &value, const QString &format);

/// What `FORMETGEN` gives with "#,##0", for lists of very many amounts: neither text nor pattern is read.
QString groupedRupees(double amount);

} // namespace ledgora
