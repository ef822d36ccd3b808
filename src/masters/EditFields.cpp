#include "masters/EditFields.h"

#include "controls/ChoiceBox.h"
#include "controls/Screen.h"
#include "controls/StateChoice.h"
#include "store/Identifiers.h"
#include "store/NewId.h"
#include "store/StateList.h"
#include <QLineEdit>

namespace ledgora {

MasterRow readEditFields(const QWidget &screen, std::span<const MasterField> fields)
{
    MasterRow row;
    for (const MasterField &field : fields) {
        const QString name = QLatin1String(field.field);
        const auto *line = screen.findChild<QLineEdit *>(name);
        const auto *states = screen.findChild<ChoiceBox *>(name);
        row.insert(QLatin1String(field.column),
                   line ? line->text() : GETSTATENAMEFORNAMECODEGST(states ? states->currentText() : QString()));
    }
    return row;
}

void writeEditFields(QWidget &screen, std::span<const MasterField> fields, const MasterRow &row)
{
    for (const MasterField &field : fields) {
        const QString text = row.value(QLatin1String(field.column));
        if (auto *line = screen.findChild<QLineEdit *>(QLatin1String(field.field)))
            line->setText(text);
        else if (auto *states = screen.findChild<ChoiceBox *>(QLatin1String(field.field)))
            FILLCBOSTATEFORNAMEONLYGST(*states, text);
    }
}

bool panFieldIsValid(Screen &screen, QLineEdit &pan)
{
    const PanFault fault = panFault(pan.text());
    if (fault == PanFault::None)
        return true;
    if (fault == PanFault::FourthCharacter)
        screen.inform(QStringLiteral("Fourth Character of PAN Should be [P,H,C,J,F,A,T,B,L,G]."));
    screen.inform(QStringLiteral("PAN No is not Valid."), &pan);
    pan.selectAll();
    return false;
}

bool tellsUnsaved(Screen &screen, bool saved, int id, const QString &command)
{
    if (!saved)
        screen.alarm(id < 1 ? QLatin1String(invalidIdMessage)
                            : QStringLiteral("The database did not take the entry. What was typed is still here; press "
                                             "%1 to try again.")
                                  .arg(command));
    return !saved;
}

} // namespace ledgora
