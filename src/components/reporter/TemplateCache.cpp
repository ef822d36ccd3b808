#include "components/reporter/TemplateCache.h"

#include "components/reporter/RtfReader.h"
#include <QFile>
#include <QFileInfo>

namespace ledgora::reporter {

namespace {

constexpr int mostEntries = 32; ///< more templates than that are not in use together

} // namespace

std::shared_ptr<const TemplateCache::Template> TemplateCache::load(const QString &path, QString &fault)
{
    const QFileInfo info(path);
    const auto found = m_entries.constFind(path);
    if (found != m_entries.cend() && info.isFile() && found->size == info.size()
        && found->changed == info.lastModified())
        return found->parsed;
    m_entries.remove(path);
    QFile file(path);
    if (!info.isFile()) {
        fault = info.exists() ? QStringLiteral("it is a folder") : QStringLiteral("no such file");
        return nullptr;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        fault = file.errorString();
        return nullptr;
    }
    RtfRead read = readRtf(file.read(largestInput + 1));
    const auto parsed = std::make_shared<const Template>(Template{std::move(read.document), read.error});
    if (m_entries.size() >= mostEntries)
        m_entries.clear();
    m_entries.insert(path, {info.size(), info.lastModified(), parsed});
    return parsed;
}

} // namespace ledgora::reporter
