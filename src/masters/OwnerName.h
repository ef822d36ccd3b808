#pragma once

#include <QString>

namespace ledgora {

/// Name of an individual of `Owner1` from `F_nm`, `M_nm` and `l_nm`: joined by single blanks, without blanks at the
/// ends, so that a missing middle name leaves one blank between first and last name.
QString ownerName(const QString &first, const QString &middle, const QString &last);

} // namespace ledgora
