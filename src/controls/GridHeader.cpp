#include "controls/GridHeader.h"

#include "controls/Grid.h"
#include <QPainter>

namespace ledgora {

GridHeader::GridHeader(QWidget *parent) : QHeaderView(Qt::Horizontal, parent)
{
    setSectionsClickable(false);
    setHighlightSections(false);
    setMinimumSectionSize(8);
}

void GridHeader::setMergedRows(int rows)
{
    m_mergedRows = rows;
    updateGeometry();
}

const Cells *GridHeader::cells() const
{
    const auto *model = qobject_cast<const CellsModel *>(this->model());
    return model ? &model->cells : nullptr;
}

int GridHeader::rowHeight() const
{
    return fontMetrics().height() + 8;
}

QSize GridHeader::sizeHint() const
{
    const int rows = cells() ? std::max(1, cells()->fixedRows()) : 1;
    return {QHeaderView::sizeHint().width(), rows * rowHeight()};
}

std::vector<int> GridHeader::visibleColumns() const
{
    std::vector<int> columns;
    for (int column = 0; column < count(); ++column) {
        if (!isSectionHidden(column))
            columns.push_back(column);
    }
    return columns;
}

void GridHeader::paintEvent(QPaintEvent *)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), palette().button());
    if (!cells())
        return;
    for (int row = 0; row < cells()->fixedRows(); ++row) {
        if (row < m_mergedRows)
            paintMergedRow(painter, row);
        else
            paintTotalRow(painter, row);
    }
}

void GridHeader::paintMergedRow(QPainter &painter, int row) const
{
    const std::vector<int> columns = visibleColumns();
    for (size_t first = 0; first < columns.size();) {
        const QString &text = cells()->text(row, columns[first]);
        size_t last = first;
        while (last + 1 < columns.size() && cells()->text(row, columns[last + 1]) == text)
            ++last;
        int rows = 1;
        while (row + rows < m_mergedRows && cells()->text(row + rows, columns[first]) == text)
            ++rows;
        const bool shownAbove = row > 0 && cells()->text(row - 1, columns[first]) == text;
        const int left = sectionViewportPosition(columns[first]);
        const int right = sectionViewportPosition(columns[last]) + sectionSize(columns[last]);
        if (!shownAbove)
            paintField(painter, QRect(left, row * rowHeight(), right - left, rows * rowHeight()), text, Qt::AlignCenter,
                       false);
        first = last + 1;
    }
}

void GridHeader::paintTotalRow(QPainter &painter, int row) const
{
    for (const int column : visibleColumns()) {
        const QRect rect(sectionViewportPosition(column), row * rowHeight(), sectionSize(column), rowHeight());
        const int alignment = model()->index(row, column).data(Qt::TextAlignmentRole).toInt();
        const QString text = model()->index(row, column).data(Qt::DisplayRole).toString();
        paintField(painter, rect, text, alignment, true);
    }
}

void GridHeader::paintField(QPainter &painter, const QRect &rect, const QString &text, int alignment, bool total) const
{
    if (total)
        painter.fillRect(rect, palette().brush(QPalette::Base));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    painter.drawLine(rect.topRight(), rect.bottomRight());
    QFont font = this->font();
    font.setBold(total);
    painter.setFont(font);
    painter.setPen(palette().color(total ? QPalette::Text : QPalette::ButtonText));
    painter.drawText(rect.adjusted(3, 0, -4, 0), alignment,
                     painter.fontMetrics().elidedText(text, Qt::ElideRight, rect.width() - 4));
}

} // namespace ledgora
