#pragma once

#include <QStringList>

namespace ledgora {

/// The list of Indian states with their two-character GST codes: 37 rows in the order of every state list, and the
/// translation between a state's name, its code and its display form "DELHI (07)".
/// `operation` is one of "FILLCBO", "NAME_FOR_NAMECODE", "CODE_FOR_NAMECODE", "NAME_FOR_CODE", "CODE_FOR_NAME";
/// unknown values and empty ones give "". Old spellings of a name count in "CODE_FOR_NAME" only.
QString DOPROCSTATELISTGST(const QString &operation, const QString &value);

QString GETSTATENAMEFORNAMECODEGST(const QString &nameCode);
QString GETSTATECODEFORNAMECODEGST(const QString &nameCode);
QString GETSTATENAMEFORCODEONLYGST(const QString &code);
QString GETSTATECODEFORNAMEONLYGST(const QString &name);

/// The 37 display forms in table order.
QStringList stateDisplayForms();

/// Display form to select for a state's name (`name` given as it is, so that an old spelling finds none) or for its
/// code; "" when there is none.
QString stateEntryForName(const QString &name);
QString stateEntryForCode(const QString &code);

} // namespace ledgora
