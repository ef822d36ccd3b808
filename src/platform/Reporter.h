#pragma once

#include <QString>
#include <variant>

namespace ledgora {

/// What stands for a placeholder: a text as it is, or a number that the engine writes in the plain general form
/// (no grouping, no forced decimals, "." as point: 1180 and 1180.5).
using PlaceholderValue = std::variant<QString, double>;

/// Document engine and viewer behind the ProgID "PrjOrvaneReporter.ClsMain". One object serves all screens; it keeps
/// the last report until the next one is begun. No operation throws; a failure is logged.
class Reporter
{
public:
    static constexpr auto progId = "PrjOrvaneReporter.ClsMain";

    Reporter() = default;
    Reporter(const Reporter &) = delete;
    Reporter &operator=(const Reporter &) = delete;
    virtual ~Reporter() = default;

    /// Loads the template as the current report, a single preview.
    virtual void newreportnew(const QString &templatePath) = 0;
    /// Replaces all occurrences of the placeholder in the current report. A value is searched by the later
    /// replacements; a placeholder that the report does not contain is no failure.
    virtual void SetText(const QString &placeholder, const PlaceholderValue &value) = 0;
    /// Shows the current report in the viewer, from which the user prints or saves. The flag is kept for hosts that
    /// pass it and changes nothing.
    virtual void ShowReport(bool flag) = 0;
    /// Writes the current report as PDF. The integer is kept for callers that pass it and changes nothing.
    virtual void SaveToPDF(const QString &path, int option) = 0;
};

} // namespace ledgora
