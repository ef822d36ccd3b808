#pragma once

#include "store/Cells.h"
#include "store/Pick.h"
#include <QAbstractTableModel>
#include <QHash>
#include <QHeaderView>
#include <QTableView>
#include <functional>
#include <vector>

namespace ledgora {

/// Cells as an item model: rows and columns numbered as in the table, fixed rows included.
class CellsModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    struct Column
    {
        bool rightAligned = false;
        bool check = false;     ///< "Y" and "N" as a check box
        bool computed = false;  ///< never typed into
        int maxLength = 32767;  ///< characters an editor takes
        bool upperCase = false; ///< letters brought into it become capitals
        std::vector<Pick> picks;
    };

    Cells cells;
    QHash<int, Column> columns;
    std::function<bool(int row, int column)> editable;

    /// Tells the views that rows moved, came or went.
    void resetCells();

Q_SIGNALS:
    /// The user changed a cell.
    void cellEdited(int row, int column);
};

/// The grid control on `Cells`: fixed rows painted by the heading (equal neighbours merged), pick lists, check cells,
/// hidden rows and columns, editing on entry. Enter is told, not interpreted; Tab walks the cells and leaves at the
/// end.
class Grid : public QTableView
{
    Q_OBJECT
public:
    explicit Grid(QWidget *parent = nullptr);

    const Cells &cells() const { return m_model.cells; }
    void setCells(Cells cells);
    /// Changes the cells and brings the view in line: the cursor's row and column stay where they can.
    void change(const std::function<void(Cells &)> &changer);

    CellsModel::Column &column(int index) { return m_model.columns[index]; }
    /// Which cells may be edited, and in which editing starts when the cursor lands on them. Unset: none.
    void setEditRules(std::function<bool(int, int)> editable, std::function<bool(int, int)> editedOnEntry);
    /// A list to choose a row from: rows selected whole, nothing edited.
    void setListMode();
    /// Heading rows in which equal neighbours are merged; further fixed rows are totals, in bold.
    void setMergedHeadingRows(int rows);
    /// Widths as fractions of the grid's width, by column; `restColumn` takes what the other visible columns leave.
    void setWidths(const std::vector<double> &fractions, int restColumn);

    int row() const { return currentIndex().row(); } ///< -1 when none is selected
    int col() const { return currentIndex().column(); }
    void setRow(int row); ///< no row for -1; scrolls to it
    /// The same for a row that was searched: those that follow it show too.
    void setFoundRow(int row);
    void setCursor(int row, int column);
    /// Puts the cursor into a cell that can be edited, and opens it.
    void editCell(int row, int column);
    /// Opens a cell that was refused, in the colour of one until it is changed.
    void editRefusedCell(int row, int column);
    bool isRefused(const QModelIndex &cell) const { return m_refused == cell; }
    /// Whether Tab passes over cells that can not be edited.
    void setStepsOverEditableOnly(bool only) { m_stepsOverEditableOnly = only; }
    int lastVisibleRow() const; ///< last data row inside the viewport

    /// Whether a cell may be typed into; while none of the grid may, each but those of computed columns counts.
    bool isOpen(const QModelIndex &cell) const;
    bool isEditing() const { return state() == EditingState; }
    void commitEditor();
    /// Moves the cursor by one visible cell, on into the next or previous row; False at the end.
    bool step(bool forward);
    void sizeColumns();

Q_SIGNALS:
    void cellEdited(int row, int column);
    void editFinished(int row, int column); ///< an opened cell was left, changed or not
    void enterPressed(int row, int column);
    void f12Pressed(int row, int column);
    void rowActivated(int row); ///< list mode: double click or Enter
    void rowChanged(int row);

protected:
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    friend class CellDelegate;
    void hideFixedRows();
    void putCaretBack();

    CellsModel m_model;
    QPersistentModelIndex m_refused;
    /// Where the caret stood when the editor of the current cell closed; boxes and pop-ups are followed by the same.
    struct
    {
        QString text;
        int caret = -1;
    } m_left;
    std::function<bool(int, int)> m_editedOnEntry;
    std::vector<double> m_fractions;
    int m_restColumn = -1;
    bool m_listMode = false;
    bool m_stepsOverEditableOnly = false;
};

} // namespace ledgora
