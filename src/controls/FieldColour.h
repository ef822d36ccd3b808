#pragma once

class QWidget;

namespace ledgora {

/// The colours of a field in focus and of one that was refused; both at once shows as refused. A field that had only
/// inherited its palette inherits it again afterwards.
void showFocus(QWidget &field, bool focused);
void showRefused(QWidget &field, bool refused);

} // namespace ledgora
