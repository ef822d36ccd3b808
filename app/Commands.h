#pragma once

#include "OfficeChoice.h"
#include <QString>
#include <functional>

namespace ledgora {
class ClsGST;
}

namespace ledgora::app {

struct CommandLine;
class Office;

// What the commands without a window have in common.

/// Tells on the standard error, in one line, why a command failed; answers its exit status, 1.
int failed(QString why);

/// Whether something may be written at the path of an option: "", or that another user has put a link there, as into a
/// folder that everybody may write to.
QString linkFault(const QString &path);

/// Runs the work of a command in the office of its data folder, as its host, with the billing open and no window. The
/// password of a shared server is asked for on the terminal. Answers the work's exit status, or 1 when the office or
/// the billing could not be opened or a statement failed that the work did not speak of, which was told.
int inBilling(const CommandLine &line, Folder folder, const std::function<int(Office &, ClsGST &)> &work);

} // namespace ledgora::app
