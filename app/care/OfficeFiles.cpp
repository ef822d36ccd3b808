#include "OfficeFiles.h"

#include "app/Descriptor.h"
#include "store/Settings.h"
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <algorithm>
#include <array>
#include <fcntl.h>

namespace ledgora::app {

namespace {

constexpr std::array singleFiles{"Confg.ini", "ifsc.csv"};
/// Of hosts "C" and "G", and of "T".
constexpr std::array templateFolders{"GST_Templates", "MiscSoftData/GST_Templates"};
constexpr auto aside = "restore.new";  ///< what a restore will put in place
constexpr auto former = "restore.old"; ///< what it replaced, until it is done

QString below(const QString &folder, const char *name)
{
    return joinPath(folder, QLatin1String(name));
}

QString unwritable(const QString &path)
{
    return QStringLiteral("The file [") + path + QStringLiteral("] can not be written.");
}

bool syncFolder(const QString &folder)
{
    const Descriptor opened(::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return opened.isOpen() && ::fsync(opened.number()) == 0;
}

bool isThere(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

bool removeAll(const QString &path)
{
    const QFileInfo info(path);
    return info.isDir() && !info.isSymLink() ? QDir(path).removeRecursively() : !isThere(path) || QFile::remove(path);
}

} // namespace

QString templateFolder(const QString &hostCode)
{
    return QLatin1String(templateFolders.at(hostCode == QLatin1String("T") ? 1 : 0));
}

QStringList officeFiles(const QString &dataFolder)
{
    QStringList files;
    for (const char *name : singleFiles) {
        if (QFileInfo(below(dataFolder, name)).isFile())
            files << QLatin1String(name);
    }
    const QDir office(dataFolder);
    for (const char *folder : templateFolders) {
        // Links too: an office may have its templates on a share.
        QDirIterator found(below(dataFolder, folder), QDir::Files | QDir::Hidden,
                           QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
        while (found.hasNext())
            files << office.relativeFilePath(found.next());
    }
    files.sort();
    return files;
}

bool isOfficeFile(const QString &path)
{
    const QStringList parts = path.split(u'/');
    const bool plain = std::ranges::all_of(parts, [](const QString &part) {
        return !part.isEmpty() && part != QLatin1String(".") && part != QLatin1String("..") && !part.contains(QChar(0));
    });
    if (!plain)
        return false;
    const auto isHere = [&](const char *name) { return path == QLatin1String(name); };
    const auto isBelow = [&](const char *folder) { return path.startsWith(QLatin1String(folder) + u'/'); };
    return std::ranges::any_of(singleFiles, isHere) || std::ranges::any_of(templateFolders, isBelow);
}

QString beginKeeping(const QString &dataFolder)
{
    const QString folder = below(dataFolder, aside);
    if (removeAll(folder) && QDir().mkdir(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
        return {};
    return QStringLiteral("The folder [") + folder + QStringLiteral("] can not be made.");
}

QString keepForRestore(const QString &dataFolder, const QString &path, const QByteArray &content)
{
    const QString whole = joinPath(below(dataFolder, aside), path);
    const QString folder = QFileInfo(whole).path();
    const Descriptor file(QDir().mkpath(folder) ? ::open(QFile::encodeName(whole).constData(),
                                                         O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600)
                                                : -1);
    const bool written = file.isOpen()
                         && ::write(file.number(), content.constData(), size_t(content.size())) == content.size()
                         && ::fsync(file.number()) == 0 && syncFolder(folder);
    return written ? QString() : unwritable(whole);
}

QString takeKept(const QString &dataFolder)
{
    const QString kept = below(dataFolder, aside);
    if (!isThere(kept))
        return {};
    for (const char *name : {singleFiles[0], singleFiles[1], templateFolders[0], templateFolders[1]}) {
        const QString from = below(kept, name);
        const QString place = below(dataFolder, name);
        const QString away = below(below(dataFolder, former), name);
        if (!isThere(from))
            continue;
        QDir().mkpath(QFileInfo(place).path());
        QDir().mkpath(QFileInfo(away).path());
        if (isThere(place) && !(removeAll(away) && QDir().rename(place, away)))
            return unwritable(place);
        if (!QDir().rename(from, place))
            return unwritable(place);
    }
    if (!syncFolder(dataFolder))
        return unwritable(dataFolder);
    dropKept(dataFolder);
    return {};
}

bool hasKept(const QString &dataFolder)
{
    return isThere(below(dataFolder, aside)) || isThere(below(dataFolder, former));
}

void dropKept(const QString &dataFolder)
{
    removeAll(below(dataFolder, aside));
    removeAll(below(dataFolder, former));
}

} // namespace ledgora::app
