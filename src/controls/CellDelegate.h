#pragma once

#include <QStyledItemDelegate>

namespace ledgora {

class Grid;

/// Editors of the grid: a line that says visibly that it is open, a pick list, and check cells that toggle in place.
class CellDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit CellDelegate(Grid *grid);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool editorKeyPress(QWidget *editor, QKeyEvent *key);
    void finish(QWidget *editor);

    Grid *m_grid;
};

} // namespace ledgora
