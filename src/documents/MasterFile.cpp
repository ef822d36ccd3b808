#include "documents/MasterFile.h"

#include "platform/Reporter.h"
#include <QFileInfo>

namespace ledgora {

QString CHECKANDOPENMASTERFILE(Reporter &reporter, const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists())
        return "Missing File [" + path + "].";
    if (file.isDir() || file.size() <= 0) // a folder of the name has no text either
        return "Invalid File [" + path + "].";
    reporter.OpenMasterFile(path);
    return reporter.LastMasFileOpenOK() ? QString() : QString("Failed to Open File [" + path + "].");
}

} // namespace ledgora
