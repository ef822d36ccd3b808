#pragma once

#include <QString>

namespace ledgora {

class ChoiceBox;

/// A blank entry and the states with their codes, "DELHI (07)", in the order of the state list.
void LOADSTATELISTGST(ChoiceBox &list);
/// Selects a state by its name as given (an old spelling finds none), or by its code; the blank entry otherwise.
void FILLCBOSTATEFORNAMEONLYGST(ChoiceBox &list, const QString &name);
void FILLCBOSTATEFORCODEONLYGST(ChoiceBox &list, const QString &code);

} // namespace ledgora
