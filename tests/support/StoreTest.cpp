#include "StoreTest.h"

#include "store/Cells.h"

namespace ledgora::test {

QStringList linesOf(const Cells &cells)
{
    QStringList lines;
    for (int row = 1; row < cells.rows(); ++row) {
        QStringList texts;
        for (int column = 0; column < cells.columns(); ++column)
            texts << cells.text(row, column);
        lines << texts.join('|');
    }
    return lines;
}

} // namespace ledgora::test
