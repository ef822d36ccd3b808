#include "store/Settings.h"

#include "host/WorkingState.h"
#include "store/ErrorLog.h"
#include "store/NumberFormat.h"
#include <QByteArrayList>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <limits>

namespace ledgora {

namespace {

constexpr int longestValue = 255;

/// The lines of a small text file, byte for byte, so that what another program wrote there survives a rewrite.
struct TextFile
{
    QByteArrayList lines;
    QByteArray mark; ///< byte-order mark, as some editors put it in front
    QByteArray ending = "\n";
    bool readable = true; ///< a missing file is an empty one; one that can not be read must not be rewritten
};

void logFailure(const QFileDevice &file)
{
    WriteErrLog(file.error(), file.fileName() + ": " + file.errorString(), "Ledgora");
}

TextFile readLines(const QString &path)
{
    TextFile text;
    QFile file(path);
    if (!file.exists())
        return text;
    if (!file.open(QIODevice::ReadOnly)) {
        logFailure(file);
        text.readable = false;
        return text;
    }
    QByteArray content = file.readAll();
    if (content.startsWith("\xEF\xBB\xBF")) {
        text.mark = content.left(3);
        content.remove(0, 3);
    }
    if (content.contains("\r\n"))
        text.ending = "\r\n";
    content.replace("\r\n", "\n");
    if (content.endsWith('\n'))
        content.chop(1);
    if (!content.isEmpty())
        text.lines = content.split('\n');
    return text;
}

bool writeLines(const QString &path, const TextFile &text)
{
    QSaveFile file(path);
    file.setDirectWriteFallback(true); // a folder that takes no new file may still hold one that can be written
    QByteArray content = text.mark;
    for (const QByteArray &line : text.lines)
        content += line + text.ending;
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit())
        return true;
    logFailure(file);
    return false;
}

QString decoded(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes);
}

bool isSectionLine(const QByteArray &line)
{
    return line.trimmed().startsWith('[');
}

bool isSectionNamed(const QByteArray &line, const QString &section)
{
    return decoded(line).trimmed().compare(QString('[' + section + ']'), Qt::CaseInsensitive) == 0;
}

/// Lines of a section, its heading left out; nothing when there is no such section.
struct SectionLines
{
    qsizetype begin = -1;
    qsizetype end = -1;
};

SectionLines findSection(const QByteArrayList &lines, const QString &section)
{
    SectionLines found;
    for (qsizetype at = 0; at < lines.size(); ++at) {
        if (!isSectionLine(lines.at(at)))
            continue;
        if (found.begin >= 0)
            return {found.begin, at};
        if (isSectionNamed(lines.at(at), section))
            found = {at + 1, lines.size()};
    }
    return found;
}

/// Line of the key inside the section, or -1.
qsizetype findKey(const QByteArrayList &lines, SectionLines section, const QString &key)
{
    for (qsizetype at = section.begin; at < section.end; ++at) {
        const auto equals = lines.at(at).indexOf('=');
        if (equals > 0 && decoded(lines.at(at).left(equals)).trimmed().compare(key, Qt::CaseInsensitive) == 0)
            return at;
    }
    return -1;
}

QString unquoted(const QString &value)
{
    const bool quotes =
        value.size() >= 2 && value.front() == value.back() && (value.front() == u'"' || value.front() == u'\'');
    return quotes ? value.mid(1, value.size() - 2) : value;
}

/// A line break inside a name or value would make a line of its own.
QString oneLine(QString text)
{
    return text.replace(u'\r', u' ').replace(u'\n', u' ').trimmed();
}

QString settingsIni()
{
    return findFile(gAppPath, "Confg.ini");
}

QString companyFolder()
{
    return joinPath(gTmplPath, QString::number(gFirmId));
}

void makeCompanyFolder()
{
    if (!gTmplPath.isEmpty() && QDir().mkpath(companyFolder()))
        return;
    WriteErrLog(QFileDevice::OpenError, "Folder can not be made: " + companyFolder(), "Ledgora");
}

constexpr auto billCopyKey = "B_COPY=";
constexpr auto receiptCopyKey = "R_COPY=";
constexpr auto customizedKey = "CUSTOMIZED=";

/// A small integer as the stores hold it; `fallback` for one that is out of range.
qint16 smallInteger(const QString &text, qint16 fallback)
{
    using Limits = std::numeric_limits<qint16>;
    const double value = roundHalfEven(Val(text));
    return value >= Limits::min() && value <= Limits::max() ? qint16(value) : fallback;
}

/// Takes the copy choice from a line that begins with the key.
void readCopy(const QByteArray &line, const char *key, qint16 &copy)
{
    if (line.startsWith(key))
        copy = smallInteger(decoded(line.mid(qsizetype(qstrlen(key)))), copy);
}

void readTemplateFile(const QString &folder, bool ofCompany)
{
    const TextFile text = readLines(findFile(folder, "Settings.txt"));
    for (const QByteArray &line : text.lines) {
        if (ofCompany && line == "CUSTOMIZED=Y")
            gTmplCustom = 1;
        readCopy(line, billCopyKey, gBillCopy);
        readCopy(line, receiptCopyKey, gRecpCopy);
    }
}

bool isTemplateLine(const QByteArray &line)
{
    return line.startsWith(billCopyKey) || line.startsWith(receiptCopyKey) || line.startsWith(customizedKey);
}

/// Writes the lines anew; lines that are none of ours stay behind them.
bool writeTemplateFile(const QString &folder, QByteArrayList lines)
{
    const QString path = findFile(folder, "Settings.txt");
    TextFile text = readLines(path);
    if (!text.readable)
        return false;
    for (const QByteArray &line : std::as_const(text.lines))
        if (!isTemplateLine(line))
            lines.append(line);
    text.lines = lines;
    return writeLines(path, text);
}

} // namespace

QString GETSETTININI(const QString &section, const QString &key, const QString &defaultValue)
{
    const ErrorSite site("MODULE1", "GETSETTININI");
    const TextFile text = readLines(settingsIni());
    const auto line = findKey(text.lines, findSection(text.lines, section), key);
    if (line < 0)
        return defaultValue;
    const QString entry = decoded(text.lines.at(line));
    return unquoted(entry.mid(entry.indexOf(u'=') + 1).trimmed()).left(longestValue);
}

bool SAVESETTININI(const QString &section, const QString &key, const QString &value)
{
    const ErrorSite site("MODULE1", "SAVESETTININI");
    if (section.isEmpty())
        return true;
    const QString path = settingsIni();
    TextFile text = readLines(path);
    if (!text.readable)
        return false;
    SectionLines lines = findSection(text.lines, oneLine(section));
    if (lines.begin < 0) {
        text.lines.append(QString('[' + oneLine(section) + ']').toUtf8());
        lines = {text.lines.size(), text.lines.size()};
    }
    const QByteArray entry = QString(oneLine(key) + '=' + oneLine(value)).toUtf8();
    const auto line = findKey(text.lines, lines, oneLine(key));
    while (lines.end > lines.begin && text.lines.at(lines.end - 1).trimmed().isEmpty())
        --lines.end; // blank lines before the next section stay in front of it
    if (line < 0)
        text.lines.insert(lines.end, entry);
    else
        text.lines[line] = entry;
    return writeLines(path, text);
}

void READTMPLSETUP()
{
    const ErrorSite site("MODGST", "READTMPLSETUP");
    gNameCase = smallInteger(GETSETTININI("Settings", "NameAdd_BR", "0"), 0);
    gTmplCustom = 0;
    gBillCopy = gRecpCopy = -1;
    makeCompanyFolder();
    readTemplateFile(companyFolder(), true);
    if (gTmplCustom == 0)
        readTemplateFile(gTmplPath, false);
}

bool saveTemplateSetup(bool customized, bool wasCustomized, int billCopy, int receiptCopy)
{
    const QByteArrayList copies = {billCopyKey + QByteArray::number(billCopy),
                                   receiptCopyKey + QByteArray::number(receiptCopy)};
    bool written = true;
    if (customized)
        written = writeTemplateFile(companyFolder(), QByteArrayList{"CUSTOMIZED=Y"} + copies);
    else if (wasCustomized)
        written = writeTemplateFile(companyFolder(), {"CUSTOMIZED=N"});
    if (!customized)
        written = writeTemplateFile(gTmplPath, copies) && written;
    return written;
}

QString joinPath(const QString &folder, const QString &name)
{
    QString front = folder;
    while (front.size() > 1 && front.endsWith(u'/'))
        front.chop(1);
    QString behind = name;
    while (!front.isEmpty() && behind.startsWith(u'/'))
        behind.remove(0, 1);
    if (front.isEmpty() || behind.isEmpty())
        return front + behind;
    return front.endsWith(u'/') ? QString(front + behind) : QString(front + '/' + behind);
}

QString findFile(const QString &folder, const QString &name)
{
    QString path = joinPath(folder, name);
    if (QFile::exists(path))
        return path;
    const QStringList files = QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    for (const QString &file : files)
        if (file.compare(name, Qt::CaseInsensitive) == 0)
            return joinPath(folder, file);
    return path;
}

} // namespace ledgora
