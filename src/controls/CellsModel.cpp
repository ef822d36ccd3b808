#include "controls/Grid.h"

#include <algorithm>

namespace ledgora {

namespace {

QString shownText(const CellsModel::Column &column, const QString &key)
{
    const auto pick = std::ranges::find(column.picks, key, &Pick::key);
    return pick != column.picks.end() ? pick->shown : key;
}

} // namespace

int CellsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : cells.rows();
}

int CellsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : cells.columns();
}

QVariant CellsModel::data(const QModelIndex &index, int role) const
{
    const Column column = columns.value(index.column());
    const QString &text = cells.text(index.row(), index.column());
    switch (role) {
    case Qt::DisplayRole:
        return column.check ? QString() : shownText(column, text);
    case Qt::EditRole:
        return text;
    case Qt::CheckStateRole:
        return column.check ? QVariant(text == QLatin1String("Y") ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::TextAlignmentRole:
        return int((column.rightAligned ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    default:
        return {};
    }
}

bool CellsModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole)
        return false;
    cells.setText(index.row(), index.column(), value.toString());
    Q_EMIT dataChanged(index, index);
    Q_EMIT cellEdited(index.row(), index.column());
    return true;
}

Qt::ItemFlags CellsModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (editable && editable(index.row(), index.column()))
        flags |= Qt::ItemIsEditable;
    return flags;
}

} // namespace ledgora
