#pragma once

#include "store/SqlText.h"
#include <QMap>
#include <QStringList>
#include <span>

namespace ledgora {

class Connection;

/// A row of a master as it travels between an edit frame and its table: text by column name.
using MasterRow = QMap<QString, QString>;

/// Column of a master and the object name of the field that shows it, in the table's order.
struct MasterField
{
    const char *column;
    const char *field;
};

/// "'a','b'": the values of a row in the fields' order, for an INSERT.
QString insertValues(std::span<const MasterField> fields, const MasterRow &row);
/// "Nm='a',City='b'": for an UPDATE.
QString updateValues(std::span<const MasterField> fields, const MasterRow &row);

} // namespace ledgora
