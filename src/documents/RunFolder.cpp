#include "documents/RunFolder.h"

#include "host/WorkingState.h"
#include "store/NumberFormat.h"
#include "store/Settings.h"
#include <QDir>
#include <QTime>

namespace ledgora {

namespace {

constexpr int mostRunsAtOnce = 100;

} // namespace

RunFolder::RunFolder(char kind)
{
    if (gTmpPath.isEmpty())
        return;
    const int seconds = QTime(0, 0).secsTo(QTime::currentTime());
    // A folder that is there already is another run's, or a stranger's: it is left alone and the next number taken.
    for (int run = 0; run < mostRunsAtOnce && !m_isThere; ++run) {
        m_path = joinPath(gTmpPath, QChar::fromLatin1(kind) + formatNumber(seconds + run, "000000"));
        m_isThere = QDir().mkdir(m_path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        if (!m_isThere && !QFile::exists(m_path))
            return;
    }
}

RunFolder::~RunFolder()
{
    if (m_isThere)
        QDir(m_path).removeRecursively();
}

} // namespace ledgora
