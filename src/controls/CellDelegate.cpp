#include "controls/CellDelegate.h"

#include "controls/ChoiceBox.h"
#include "controls/FieldColour.h"
#include "controls/Grid.h"
#include "controls/OneLine.h"
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QTimer>

namespace ledgora {

namespace {

constexpr auto originalTextProperty = "originalText";
constexpr int closedDarkness = 107; // of a hundred: a shade darker than what may be typed into

QComboBox *pickEditor(QWidget *parent, const std::vector<Pick> &picks)
{
    auto *box = new ChoiceBox(parent);
    for (const Pick &pick : picks)
        box->addItem(pick.entry, pick.key);
    box->view()->setTextElideMode(Qt::ElideNone);
    box->view()->setMinimumWidth(box->minimumSizeHint().width());
    return box;
}

} // namespace

CellDelegate::CellDelegate(Grid *grid) : QStyledItemDelegate(grid), m_grid(grid) {}

QWidget *CellDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &index) const
{
    const CellsModel::Column &column = m_grid->column(index.column());
    if (column.check)
        return nullptr;
    if (!column.picks.empty()) {
        QComboBox *box = pickEditor(parent, column.picks);
        // The choice ends the edit, as leaving the list with Enter does. The key that opened the list has chosen
        // nothing yet, though the box tells it as a choice: the rest of what is typed goes on searching.
        QTimer::singleShot(0, box, [this, box, index = QPersistentModelIndex(index)] {
            box->showPopup();
            connect(box, &QComboBox::activated, this, [this, box, index] {
                auto *self = const_cast<CellDelegate *>(this); // the signals of an editor's end are not const
                self->finish(box);
                if (index.isValid())
                    Q_EMIT m_grid->enterPressed(index.row(), index.column());
            });
        });
        return box;
    }
    auto *line = new QLineEdit(parent);
    line->setAccessibleName(m_grid->cells().text(0, index.column()));
    line->setMaxLength(column.maxLength);
    line->setAlignment(column.rightAligned ? Qt::AlignRight : Qt::AlignLeft);
    if (m_grid->isRefused(index)) {
        showRefused(*line, true);
        connect(line, &QLineEdit::textEdited, line, [line] { showRefused(*line, false); });
    }
    return line;
}

void CellDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QString text = index.data(Qt::EditRole).toString();
    if (auto *box = qobject_cast<QComboBox *>(editor)) {
        box->setCurrentIndex(box->findData(text));
    } else if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        line->setText(text);
        // From now on: what only passes through the editor stays as it is stored.
        keepOneLine(*line, m_grid->column(index.column()).upperCase);
        line->setProperty(originalTextProperty, text);
        line->selectAll();
    }
}

void CellDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    QString text;
    if (const auto *box = qobject_cast<QComboBox *>(editor))
        text = box->currentData().toString();
    else if (const auto *line = qobject_cast<QLineEdit *>(editor))
        text = line->text();
    if (text != index.data(Qt::EditRole).toString())
        model->setData(index, text);
    Q_EMIT m_grid->editFinished(index.row(), index.column());
}

bool CellDelegate::editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                               const QModelIndex &index)
{
    if (!m_grid->column(index.column()).check)
        return QStyledItemDelegate::editorEvent(event, model, option, index);
    const bool clicked =
        event->type() == QEvent::MouseButtonRelease && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton;
    const bool space = event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Space;
    if (!(clicked || space) || !(model->flags(index) & Qt::ItemIsEditable))
        return false;
    const bool checked = index.data(Qt::EditRole).toString() == QLatin1String("Y");
    return model->setData(index, checked ? QStringLiteral("N") : QStringLiteral("Y"));
}

void CellDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (!m_grid->column(index.column()).check) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    QStyleOptionViewItem box = option;
    initStyleOption(&box, index);
    const bool checked = box.checkState == Qt::Checked;
    box.features &= ~QStyleOptionViewItem::HasCheckIndicator;
    const QStyle *style = m_grid->style();
    style->drawControl(QStyle::CE_ItemViewItem, &box, painter, m_grid);
    const QSize size(style->pixelMetric(QStyle::PM_IndicatorWidth), style->pixelMetric(QStyle::PM_IndicatorHeight));
    box.rect = QStyle::alignedRect(box.direction, Qt::AlignCenter, size, option.rect);
    box.state.setFlag(QStyle::State_On, checked);
    box.state.setFlag(QStyle::State_Off, !checked);
    box.state.setFlag(QStyle::State_HasFocus, false);
    style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter, m_grid);
}

void CellDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (!m_grid->isOpen(index))
        option->backgroundBrush = option->palette.color(QPalette::Base).darker(closedDarkness);
}

bool CellDelegate::eventFilter(QObject *watched, QEvent *event)
{
    auto *editor = qobject_cast<QWidget *>(watched);
    if (editor && event->type() == QEvent::KeyPress && editorKeyPress(editor, static_cast<QKeyEvent *>(event)))
        return true;
    // Switching windows or opening a menu ends no edit: what is half typed is neither judged nor lost.
    if (editor && event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason == Qt::ActiveWindowFocusReason || reason == Qt::MenuBarFocusReason)
            return false;
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}

bool CellDelegate::editorKeyPress(QWidget *editor, QKeyEvent *key)
{
    const int row = m_grid->row();
    const int column = m_grid->col();
    switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        finish(editor);
        Q_EMIT m_grid->enterPressed(row, column);
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        finish(editor);
        if (!m_grid->step(key->key() == Qt::Key_Tab))
            m_grid->focusNextPrevChild(key->key() == Qt::Key_Tab);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (qobject_cast<QLineEdit *>(editor) == nullptr)
            return false;
        finish(editor);
        QApplication::sendEvent(m_grid, key);
        return true;
    case Qt::Key_F12:
        if (key->modifiers() == Qt::NoModifier)
            Q_EMIT m_grid->f12Pressed(row, column);
        return true;
    case Qt::Key_Escape: {
        // A changed cell goes back to what it held; with nothing to take back the key is the screen's.
        const auto *line = qobject_cast<QLineEdit *>(editor);
        const bool unchanged = !line || line->text() == line->property(originalTextProperty).toString();
        Q_EMIT closeEditor(editor, RevertModelCache);
        const QPointer<Grid> grid(m_grid);
        if (unchanged)
            QApplication::sendEvent(m_grid, key);
        if (unchanged && grid)
            grid->putCaretBack(); // a question was answered, and the cell is open again
        return true;
    }
    default:
        return false;
    }
}

void CellDelegate::finish(QWidget *editor)
{
    Q_EMIT commitData(editor);
    Q_EMIT closeEditor(editor, NoHint);
}

} // namespace ledgora
