#include "components/banklookup/BranchDialog.h"

#include "components/banklookup/BranchList.h"
#include "controls/CommandButton.h"
#include "controls/Grid.h"
#include "controls/KeyGuard.h"
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace ledgora::banklookup {

namespace {

constexpr qsizetype shownAtMost = 1000; // nobody reads further; another word narrows the list

bool movesInList(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

Cells emptyBranchCells()
{
    Cells cells(4, 1);
    cells.setRow(
        0, {QStringLiteral("Bank"), QStringLiteral("Branch"), QStringLiteral("City"), QStringLiteral("IFS Code")});
    return cells;
}

} // namespace

BranchDialog::BranchDialog(const BranchList &list, const QString &words, QWidget *parent)
    : QDialog(parent)
    , m_list(list)
    , m_words(new QLineEdit(this))
    , m_branches(new Grid(this))
    , m_count(new QLabel(this))
{
    keepCommandsOutOfText(*this);
    setWindowTitle(QStringLiteral("Bank"));
    setObjectName(QStringLiteral("bankLookup"));
    m_words->setObjectName(QStringLiteral("txtBankWords"));
    m_words->setMaxLength(200);
    m_words->installEventFilter(this);
    m_branches->setObjectName(QStringLiteral("vsBankBranches"));
    m_branches->setListMode();
    m_branches->setCells(emptyBranchCells());
    m_branches->setWidths({0.32, 0.3, 0.2, 0.18}, 0);
    auto *ask = new QLabel(QStringLiteral("Bank, branch, &city or IFS code"), this);
    ask->setBuddy(m_words);
    auto *ok = new CommandButton(QStringLiteral("&OK"), this);
    auto *cancel = new CommandButton(QStringLiteral("Ca&ncel"), this);
    ok->setDefault(true);
    cancel->setAutoDefault(false);

    auto *question = new QHBoxLayout;
    question->addWidget(ask);
    question->addWidget(m_words, 1);
    auto *commands = new QHBoxLayout;
    commands->addWidget(m_count, 1);
    commands->addWidget(ok);
    commands->addWidget(cancel);
    auto *rows = new QVBoxLayout(this);
    rows->addLayout(question);
    rows->addWidget(m_branches, 1);
    rows->addLayout(commands);

    connect(m_words, &QLineEdit::textChanged, this, &BranchDialog::search);
    connect(m_branches, &Grid::rowActivated, this, &BranchDialog::take);
    connect(ok, &QAbstractButton::clicked, this, &BranchDialog::take);
    connect(cancel, &QAbstractButton::clicked, this, &QDialog::reject);
    m_words->setText(words);
    search(words);
}

void BranchDialog::search(const QString &words)
{
    qsizetype found = 0;
    m_hits = m_list.find(words, shownAtMost, found);
    m_branches->change([this](Cells &cells) {
        cells.clearData();
        for (const Branch *hit : m_hits)
            cells.addRow({hit->bank, hit->branch, hit->city, hit->ifsCode});
    });
    m_branches->setRow(m_hits.empty() ? -1 : 1);
    if (found == 0)
        m_count->setText(QStringLiteral("No branch has all these words."));
    else if (found > shownAtMost)
        m_count->setText(QStringLiteral("The first %1 of %2 branches. One more word shortens the list.")
                             .arg(shownAtMost)
                             .arg(found));
    else
        m_count->setText(found == 1 ? QStringLiteral("1 branch") : QStringLiteral("%1 branches").arg(found));
}

const Branch *BranchDialog::chosen() const
{
    const int row = m_branches->row() - m_branches->cells().fixedRows();
    return row >= 0 && size_t(row) < m_hits.size() ? m_hits[size_t(row)] : nullptr;
}

void BranchDialog::take()
{
    if (chosen())
        accept();
}

bool BranchDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_words && event->type() == QEvent::KeyPress
        && movesInList(static_cast<QKeyEvent *>(event)->key())) {
        QCoreApplication::sendEvent(m_branches, event);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace ledgora::banklookup
