#include "components/reporter/FindBar.h"

#include "components/reporter/PageSearch.h"
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

namespace ledgora::reporter {

FindBar::FindBar(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("famFind"));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(8, 0, 8, 4);
    row->setSpacing(4);
    auto *caption = new QLabel(QStringLiteral("&Text"), this);
    m_words = new QLineEdit(this);
    m_words->setObjectName(QStringLiteral("txtFind"));
    m_words->setMaxLength(200);
    m_words->setMaximumWidth(320);
    caption->setBuddy(m_words);
    row->addWidget(caption);
    row->addWidget(m_words, 1);
    addStep(QStringLiteral("cmdFindPrevious"), QStringLiteral("Pre&vious"), true);
    addStep(QStringLiteral("cmdFindNext"), QStringLiteral("Ne&xt"), false);
    m_found = new QLabel(this);
    m_found->setObjectName(QStringLiteral("lblFound"));
    m_found->setTextFormat(Qt::PlainText);
    row->addSpacing(4);
    row->addWidget(m_found);
    row->addStretch(1);
    connect(m_words, &QLineEdit::textChanged, this, &FindBar::wordsChanged);
    connect(m_words, &QLineEdit::returnPressed, this, [this] { Q_EMIT nextWanted(false); });
    auto *back = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_Return), m_words);
    back->setContext(Qt::WidgetShortcut);
    connect(back, &QShortcut::activated, this, [this] { Q_EMIT nextWanted(true); });
    hide();
}

void FindBar::addStep(const QString &objectName, const QString &caption, bool backwards)
{
    auto *button = new QPushButton(caption, this);
    button->setObjectName(objectName);
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::TabFocus);
    layout()->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, backwards] { Q_EMIT nextWanted(backwards); });
}

void FindBar::open()
{
    show();
    m_words->setFocus(Qt::ShortcutFocusReason);
    m_words->selectAll();
}

QString FindBar::words() const
{
    return m_words->text();
}

void FindBar::tell(int place, int places)
{
    if (words().trimmed().isEmpty())
        m_found->clear();
    else if (places == 0)
        m_found->setText(QStringLiteral("Not found"));
    else
        m_found->setText(QStringLiteral("%1 of %2%3")
                             .arg(place)
                             .arg(places)
                             .arg(places == static_cast<int>(mostHits) ? QStringLiteral(" or more") : QString()));
}

} // namespace ledgora::reporter
