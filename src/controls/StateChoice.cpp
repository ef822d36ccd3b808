#include "controls/StateChoice.h"

#include "controls/ChoiceBox.h"
#include "store/StateList.h"

namespace ledgora {

void LOADSTATELISTGST(ChoiceBox &list)
{
    list.clear();
    list.addItem(QString());
    list.addItems(stateDisplayForms());
}

void FILLCBOSTATEFORNAMEONLYGST(ChoiceBox &list, const QString &name)
{
    list.chooseText(stateEntryForName(name), 0);
}

void FILLCBOSTATEFORCODEONLYGST(ChoiceBox &list, const QString &code)
{
    list.chooseText(stateEntryForCode(code), 0);
}

} // namespace ledgora
