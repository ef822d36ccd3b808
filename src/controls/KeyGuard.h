#pragma once

class QWidget;

namespace ledgora {

/// Keys pressed together with Alt or Ctrl are commands: from now on none of them is typed into what has the keys in
/// `window`, nor searches in one of its lists. Where a drop-down list is open, the access key of a command takes the
/// entry under the cursor and gives the command its click, as from any field.
void keepCommandsOutOfText(QWidget &window);

} // namespace ledgora
