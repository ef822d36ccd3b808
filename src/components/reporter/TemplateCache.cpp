#include "components/reporter/TemplateCache.h"

#include "components/reporter/RtfReader.h"
#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace ledgora::reporter {

namespace {

constexpr int mostEntries = 32; ///< more templates than that are not in use together

/// Whether anything of it is seen on paper; what is kept only for other programs is not.
bool showsAnything(const Document &document)
{
    bool shows = false;
    everyParagraph(document, [&shows](const Paragraph &paragraph) {
        shows = shows || std::ranges::any_of(paragraph.runs, [](const Run &run) {
                    return run.isText() ? !run.format.hidden && !run.text.trimmed().isEmpty() : !run.anchor;
                });
    });
    return shows;
}

/// What stands at the path of a template instead of a file.
QString noFile(const QFileInfo &info)
{
    if (info.isDir())
        return QStringLiteral("it is a folder");
    return info.exists() ? QStringLiteral("it is no file") : QStringLiteral("no such file");
}

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
        fault = noFile(info);
        return nullptr;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        fault = file.errorString();
        return nullptr;
    }
    RtfRead read = readRtf(file.read(largestInput + 1));
    if (read.error.isEmpty() && !showsAnything(read.document))
        read.error = QStringLiteral("it holds no text");
    const auto parsed = std::make_shared<const Template>(Template{std::move(read.document), read.error});
    if (m_entries.size() >= mostEntries)
        m_entries.clear();
    m_entries.insert(path, {info.size(), info.lastModified(), parsed});
    return parsed;
}

} // namespace ledgora::reporter
