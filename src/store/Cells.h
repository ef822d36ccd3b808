#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace ledgora {

/// A table of text: the working store of every grid and list, usable without a window. Rows and columns count from 0;
/// the first `fixedRows` rows are headings and totals, which sorting and searching from a data row leave alone.
/// Reading outside the table gives "", writing outside it does nothing. Holds hundreds of thousands of rows.
class Cells
{
public:
    enum class Sort {
        Number, ///< by the numeric value of the text
        Text,   ///< upper-cased code points, then code points
        Date,   ///< text DD/MM/YYYY by the day; no date comes first
    };
    enum class Match {
        Exact,         ///< the whole text, case counts
        ExactAnyCase,  ///< the whole text, case does not count
        BeginsAnyCase, ///< the text begins with it, case does not count
    };

    explicit Cells(int columns = 0, int fixedRows = 0);

    int columns() const { return m_columns; }
    int fixedRows() const { return m_fixedRows; }
    int rows() const { return int(m_hidden.size()); }
    bool hasData() const { return rows() > m_fixedRows; }
    bool isData(int row) const { return row >= m_fixedRows && row < rows(); }

    const QString &text(int row, int column) const;
    double value(int row, int column) const; ///< numeric prefix of the text, else 0
    void setText(int row, int column, const QString &text);
    void setRow(int row, const QStringList &texts); ///< from column 0; further columns stay

    void setColumns(int count); ///< cuts columns on the right, or adds empty ones
    void setRows(int count);    ///< cuts or adds empty rows at the end, never below the fixed rows
    int addRow(const QStringList &texts = {});
    void insertRow(int row, const QStringList &texts = {});
    void removeRow(int row);
    void clearData() { setRows(m_fixedRows); }

    bool isHidden(int row) const;
    void setHidden(int row, bool hidden);

    /// First row at or below `from` (and at or below the fixed rows) whose cell matches, else -1. Hidden rows count
    /// unless `visibleOnly`.
    int find(const QString &text, int column, int from = 0, Match match = Match::Exact, bool visibleOnly = false) const;
    /// Exact search that follows two sorted lists: from `start`, and once more from the first data row when that
    /// missed; a hit moves `start`.
    int findMoving(const QString &text, int column, int &start) const;

    /// Sorts the data rows ascending; rows of equal keys keep their order.
    void sort(int column, Sort kind);

    /// Counts every change of the number, order or hiding of rows, so that a view knows when its rows moved.
    quint64 shape() const { return m_shape; }

private:
    size_t place(int row, int column) const { return size_t(row) * size_t(m_columns) + size_t(column); }

    std::vector<QString> m_texts; ///< row by row, without a block of memory for each row
    std::vector<char> m_hidden;   ///< one for each row
    int m_columns;
    int m_fixedRows;
    quint64 m_shape = 0;
};

} // namespace ledgora
