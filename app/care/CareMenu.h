#pragma once

#include <functional>

class QMenuBar;
class QWidget;

namespace ledgora::app {

class Office;

/// Adds the menu "Data Safety" (check, backup, restore) to a window's menu bar. `closeScreens` closes all screens
/// before a restore and returns False when one stays open; `restored` is called when the office's data is another.
void addCareMenu(QMenuBar &bar, QWidget &window, Office &office, const std::function<bool()> &closeScreens,
                 const std::function<void()> &restored);

} // namespace ledgora::app
