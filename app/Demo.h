#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace ledgora::app {

/// The demonstration: makes a new office in `outFolder`, presses the keys of a clerk on the real screens (a company,
/// other clients, the choice of templates, a bill of each tax type, one refused by a check, receipts), leaves a PDF
/// file of each bill and says what was made and how long each step took. Returns "" or what went wrong. An office of an
/// earlier demonstration is replaced, unless a program has it open. `look` is called where a screen is worth a look,
/// with its name, which is fit for a file, and the window.
using Look = std::function<void(const QString &name, QWidget &window)>;
QString runDemo(const QString &outFolder, const Look &look = {});

} // namespace ledgora::app
