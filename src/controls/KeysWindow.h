#pragma once

#include <QString>
#include <vector>

class QWidget;

namespace ledgora {

/// A key, as printed on it ("Alt+B", "F12"), and what it does.
struct KeyRow
{
    QString key;
    QString effect;
};

/// The access keys of the commands, options and fields that can be used in a window now, in the order of the window.
std::vector<KeyRow> accessKeys(const QWidget &window);

/// Shows keys in a small window over `window`, which Esc, Enter or F1 closes.
void showKeys(QWidget &window, const std::vector<KeyRow> &rows);

} // namespace ledgora
