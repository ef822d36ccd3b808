#include "controls/Grid.h"

#include "controls/CellDelegate.h"
#include "controls/GridHeader.h"
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <cmath>

namespace ledgora {

Grid::Grid(QWidget *parent) : QTableView(parent)
{
    setHorizontalHeader(new GridHeader(this));
    setModel(&m_model);
    setItemDelegate(new CellDelegate(this));
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setSelectionMode(SingleSelection);
    setEditTriggers(CurrentChanged | AnyKeyPressed | EditKeyPressed | DoubleClicked);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerItem);
    connect(&m_model, &CellsModel::cellEdited, this, [this](int row, int column) {
        m_refused = QPersistentModelIndex();
        Q_EMIT cellEdited(row, column);
    });
}

void Grid::setCells(Cells cells)
{
    change([&cells](Cells &mine) { mine = std::move(cells); });
    hideFixedRows();
    horizontalHeader()->updateGeometry();
}

void Grid::change(const std::function<void(Cells &)> &changer)
{
    const quint64 shape = m_model.cells.shape();
    const int columns = m_model.cells.columns();
    const int formerRow = row();
    const int formerColumn = col();
    changer(m_model.cells);
    if (m_model.cells.shape() == shape && m_model.cells.columns() == columns) {
        Q_EMIT m_model.dataChanged(m_model.index(0, 0), m_model.index(m_model.rowCount() - 1, columns - 1));
        horizontalHeader()->viewport()->update();
        return;
    }
    {
        const QSignalBlocker quiet(this);
        m_model.resetCells();
        hideFixedRows();
        sizeColumns();
        if (m_model.cells.isData(formerRow))
            setCurrentIndex(m_model.index(formerRow, std::max(0, formerColumn)));
    }
    viewport()->update();
}

void CellsModel::resetCells()
{
    beginResetModel();
    endResetModel();
}

void Grid::setEditRules(std::function<bool(int, int)> editable, std::function<bool(int, int)> editedOnEntry)
{
    m_model.editable = std::move(editable);
    m_editedOnEntry = std::move(editedOnEntry);
}

void Grid::setListMode()
{
    m_listMode = true;
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
}

void Grid::setMergedHeadingRows(int rows)
{
    static_cast<GridHeader *>(horizontalHeader())->setMergedRows(rows);
}

void Grid::setWidths(const std::vector<double> &fractions, int restColumn)
{
    m_fractions = fractions;
    m_restColumn = restColumn;
    sizeColumns();
}

void Grid::sizeColumns()
{
    const int width = viewport()->width();
    int rest = width;
    for (int column = 0; column < int(m_fractions.size()) && column < m_model.columnCount(); ++column) {
        if (column == m_restColumn || isColumnHidden(column))
            continue;
        const int columnWidth = int(std::lround(m_fractions[size_t(column)] * width));
        setColumnWidth(column, columnWidth);
        rest -= columnWidth;
    }
    if (m_restColumn >= 0)
        setColumnWidth(m_restColumn, std::max(rest, 20));
}

void Grid::hideFixedRows()
{
    // While it is to be painted, the heading works out all positions anew for each row: seconds for long lists.
    verticalHeader()->setUpdatesEnabled(false);
    for (int row = 0; row < m_model.cells.rows(); ++row) {
        const bool hidden = row < m_model.cells.fixedRows() || m_model.cells.isHidden(row);
        if (hidden != isRowHidden(row))
            setRowHidden(row, hidden);
    }
    verticalHeader()->setUpdatesEnabled(true);
}

void Grid::setRow(int row)
{
    if (!m_model.cells.isData(row)) {
        setCurrentIndex({});
        clearSelection();
        return;
    }
    int column = std::max(0, col());
    while (isColumnHidden(column) && column + 1 < m_model.columnCount())
        ++column;
    setCurrentIndex(m_model.index(row, column));
    selectRow(row);
    scrollTo(m_model.index(row, column));
}

void Grid::setFoundRow(int row)
{
    setRow(row);
    if (row >= 0)
        scrollTo(currentIndex(), PositionAtTop);
}

bool Grid::isOpen(const QModelIndex &cell) const
{
    const CellsModel::Column column = m_model.columns.value(cell.column());
    if (column.computed || !isEnabled() || !m_model.editable)
        return !column.computed;
    return m_model.editable(cell.row(), cell.column());
}

void Grid::setCursor(int row, int column)
{
    m_left = {};
    // The cursor shows only where keys go.
    const bool shown = hasFocus() || isEditing();
    selectionModel()->setCurrentIndex(m_model.index(row, column),
                                      shown ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate);
    scrollTo(m_model.index(row, column));
}

void Grid::editCell(int row, int column)
{
    if (isEditing() && row == this->row() && column == col())
        return;
    commitEditor();
    setFocus();
    setCursor(row, column);
    if (!isEditing())
        QTableView::edit(currentIndex());
}

void Grid::editRefusedCell(int row, int column)
{
    commitEditor();
    m_refused = m_model.index(row, column);
    if (isOpen(m_refused))
        editCell(row, column);
    else
        setCursor(row, column);
}

int Grid::lastVisibleRow() const
{
    const int row = rowAt(viewport()->height() - verticalHeader()->defaultSectionSize() / 2);
    return row >= 0 ? row : m_model.cells.rows() - 1;
}

void Grid::commitEditor()
{
    if (!isEditing())
        return;
    if (QWidget *editor = indexWidget(currentIndex())) {
        const auto *line = qobject_cast<QLineEdit *>(editor);
        const int caret = line ? line->cursorPosition() : -1; // what is stored is shown anew, caret at its end
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
        m_left.caret = caret;
        putCaretBack(); // a cell that is edited on entry is open again
    }
}

bool Grid::step(bool forward)
{
    const int delta = forward ? 1 : -1;
    int row = this->row();
    int column = col();
    do {
        column += delta;
        if (column < 0 || column >= m_model.columnCount()) {
            row += delta;
            column = forward ? 0 : m_model.columnCount() - 1;
        }
        if (!m_model.cells.isData(row))
            return false;
    } while (isColumnHidden(column) || isRowHidden(row)
             || (m_stepsOverEditableOnly && !(m_model.editable && m_model.editable(row, column))));
    setCursor(row, column);
    return true;
}

bool Grid::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    const bool onEntry = trigger == CurrentChanged;
    if (onEntry && !(hasFocus() && m_editedOnEntry && m_editedOnEntry(index.row(), index.column())))
        return false;
    return QTableView::edit(index, trigger, event);
}

void Grid::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    m_left = {};
    if (current.row() != previous.row())
        Q_EMIT rowChanged(current.row());
}

void Grid::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_listMode)
            Q_EMIT rowActivated(row());
        else if (!column(col()).picks.empty() && edit(currentIndex(), EditKeyPressed, event))
            return;
        else
            Q_EMIT enterPressed(row(), col());
        return;
    case Qt::Key_F12:
        if (event->modifiers() == Qt::NoModifier)
            Q_EMIT f12Pressed(row(), col());
        return;
    case Qt::Key_Escape:
        event->ignore();
        return;
    default:
        QTableView::keyPressEvent(event);
    }
}

void Grid::mouseDoubleClickEvent(QMouseEvent *event)
{
    QTableView::mouseDoubleClickEvent(event);
    if (const QModelIndex index = indexAt(event->position().toPoint()); m_listMode && index.isValid())
        Q_EMIT rowActivated(index.row());
}

void Grid::focusInEvent(QFocusEvent *event)
{
    QTableView::focusInEvent(event);
    if (m_listMode || !currentIndex().isValid() || isEditing())
        return;
    selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
    edit(currentIndex(), CurrentChanged, nullptr);
    const Qt::FocusReason reason = event->reason();
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || reason == Qt::OtherFocusReason)
        putCaretBack();
}

void Grid::putCaretBack()
{
    auto *line = qobject_cast<QLineEdit *>(indexWidget(currentIndex()));
    if (!line || m_left.caret < 0 || line->text() != m_left.text)
        return;
    line->deselect();
    line->setCursorPosition(m_left.caret);
}

void Grid::focusOutEvent(QFocusEvent *event)
{
    QTableView::focusOutEvent(event);
    // A cell that takes no keys is not to look as if it did.
    if (!m_listMode && !isEditing())
        clearSelection();
}

void Grid::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    sizeColumns();
}

void Grid::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    if (const auto *line = qobject_cast<QLineEdit *>(editor))
        m_left = {line->text(), line->cursorPosition()};
    QTableView::closeEditor(editor, hint);
    if (!m_listMode && !hasFocus())
        clearSelection(); // the editor had the keys and another field has them now
}

bool Grid::focusNextPrevChild(bool next)
{
    if (!m_listMode && currentIndex().isValid() && step(next))
        return true;
    return QTableView::focusNextPrevChild(next);
}

} // namespace ledgora
