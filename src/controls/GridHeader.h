#pragma once

#include <QHeaderView>

namespace ledgora {

class Cells;

/// Paints the fixed rows of a grid as its heading: in the merged rows equal neighbours, beside and below one another,
/// are one field; further rows are totals, bold, aligned as their columns.
class GridHeader : public QHeaderView
{
    Q_OBJECT
public:
    explicit GridHeader(QWidget *parent);

    void setMergedRows(int rows);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    const Cells *cells() const;
    int rowHeight() const;
    std::vector<int> visibleColumns() const;
    void paintMergedRow(QPainter &painter, int row) const;
    void paintTotalRow(QPainter &painter, int row) const;
    void paintField(QPainter &painter, const QRect &rect, const QString &text, int alignment, bool total) const;

    int m_mergedRows = 1;
};

} // namespace ledgora
