#pragma once

#include "masters/FieldMap.h"

class QLineEdit;
class QWidget;

namespace ledgora {

class Screen;

/// An edit frame's fields as a row of their master; a list of states gives the bare name of its choice.
MasterRow readEditFields(const QWidget &screen, std::span<const MasterField> fields);
/// Shows a row in the fields. What the row lacks is empty; a state that is not in the list leaves the blank entry.
void writeEditFields(QWidget &screen, std::span<const MasterField> fields, const MasterRow &row);

/// The check on leaving a PAN field: shows what is wrong and marks the text.
bool panFieldIsValid(Screen &screen, QLineEdit &pan);

/// Tells a save of a master that did not go in; the frame is to stay with all that was typed. `id` below 1 means that
/// none could be allotted; `command` is the caption of the command that tries again. True when it was told.
bool tellsUnsaved(Screen &screen, bool saved, int id, const QString &command = QStringLiteral("Save"));

} // namespace ledgora
