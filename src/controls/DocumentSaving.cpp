// What the entry screens have in common when they save, and what they tell of the work of other users.

#include "bills/DocumentStore.h"
#include "bills/EntryRules.h"
#include "controls/CommandButton.h"
#include "controls/DocumentScreen.h"
#include "controls/Grid.h"
#include "controls/LineField.h"
#include "store/Connection.h"
#include "store/NewId.h"
#include <utility>

namespace ledgora {

/// Numbers out of the order of their dates are advice, not a rule: each of the two questions can be answered Yes.
bool DocumentScreen::agreesToOutOfOrder(const std::optional<Neighbour> &found, bool lower)
{
    if (gCnn->wasInterrupted()) {
        inform(QLatin1String(notWaitedForMessage), m_fields.update);
        return false;
    }
    return !found
           || ask(outOfOrderQuestion(m_kind.noun, lower, found->number, found->date, m_fields.number->text(),
                                     m_fields.date->text()),
                  QMessageBox::No);
}

/// A save that did not go in whole: say what is missing and leave everything typed where it is. With the header in,
/// pressing Update again changes that document instead of making a second one.
void DocumentScreen::keepEntry(const SaveResult &saved)
{
    if (saved.id < 1)
        return alarm(QLatin1String(invalidIdMessage));
    if (saved.headerIn) {
        m_editedId = saved.id;
        m_fields.number->setHiddenValue(QString::number(saved.id));
        loadList(saved.id);
        m_seen = asStored(saved.id); // what is missing is nobody else's doing
    }
    alarm(QStringLiteral("The database did not take everything. Not saved: %1.\n\nWhat was typed is still here; press "
                         "Update to try again.")
              .arg(saved.notIn.join(QStringLiteral(", "))));
}

/// Advice only: the last writer wins. What is stored now counts as seen from here on.
bool DocumentScreen::wasChangedByOthers()
{
    if (m_editedId == 0)
        return false;
    const auto now = asStored(m_editedId);
    if (!now)
        return false;
    const auto seen = std::exchange(m_seen, now);
    return seen && seen != now; // what could not be read before proves nothing
}

QString DocumentScreen::replacedNote(bool overwritten)
{
    return overwritten ? QStringLiteral(" Another user had changed it meanwhile; your entry has replaced his.")
                       : QString();
}

void DocumentScreen::noteStored()
{
    m_seen = asStored(currentId());
    if (!m_seen || isListedAsStored(m_list->cells(), m_list->row(), m_kind.list, *m_seen))
        return;
    const QString noun = m_kind.noun.toLower();
    say(m_seen->header.isEmpty() ? QStringLiteral("Another user has deleted this %1.").arg(noun)
                                 : QStringLiteral("Another user has changed this %1 since the list was read; "
                                                  "choose the year again to see it as it is.")
                                       .arg(noun));
}

void DocumentScreen::noteModified()
{
    m_editedId = currentId();
    if (wasChangedByOthers())
        say(QStringLiteral("Another user has changed this %1 since it was shown here. Update replaces his entry.")
                .arg(m_kind.noun.toLower()));
}

} // namespace ledgora
