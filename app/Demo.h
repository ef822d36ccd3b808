#pragma once

#include <QString>

namespace ledgora::app {

/// The demonstration: makes a new office in `outFolder`, presses the keys of a clerk on the real screens (a company,
/// other clients, the choice of templates, a bill of each tax type, one refused by a check), leaves a PDF file of each
/// bill and says what was made and how long each step took. Returns "" or what went wrong. An office of an earlier
/// demonstration is replaced, unless a program has it open.
QString runDemo(const QString &outFolder);

} // namespace ledgora::app
