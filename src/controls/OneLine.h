#pragma once

#include <QString>

class QLineEdit;

namespace ledgora {

/// A text as one line of whole characters: control characters and line breaks become blanks, and the half of a
/// character that a cut at a length limit leaves goes. Such characters never show in a field, yet would reach
/// documents, where some of them are commands.
QString oneLine(QString text);

/// True when a key types a character, one beyond the basic plane (an emoji) too, and is no editing key.
bool isTypedCharacter(const QString &keyText);

/// Keeps what a user brings into a field so, however it gets in: typed, pasted, dropped or composed. A text that is
/// only shown, in a field that is off, stays as it is stored. With `upperCase` letters become capitals too.
void keepOneLine(QLineEdit &field, bool upperCase = false);

} // namespace ledgora
