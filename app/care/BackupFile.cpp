#include "BackupFile.h"

#include <QFileInfo>
#include <QtEndian>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <zlib.h>

namespace ledgora::app {

namespace {

constexpr QByteArrayView magic("LEDGORA\n");
constexpr quint32 formatVersion = 1;
constexpr qsizetype rowsABlock = 1'000'000; // bytes
constexpr quint32 longestBlock = 128U * 1024U * 1024U;
constexpr int fast = 1; // of zlib's levels: three times as fast as the usual one, a seventh larger

void putNumber(QByteArray &bytes, quint32 value)
{
    const quint32 big = qToBigEndian(value);
    bytes.append(reinterpret_cast<const char *>(&big), sizeof big);
}

void putLong(QByteArray &bytes, quint64 value)
{
    const quint64 big = qToBigEndian(value);
    bytes.append(reinterpret_cast<const char *>(&big), sizeof big);
}

void putText(QByteArray &bytes, const QString &text)
{
    appendCell(bytes, text.toUtf8());
}

/// Takes the parts of a block's content from its front; after the first that is not there all others are empty.
class Parts
{
public:
    explicit Parts(QByteArrayView content) : m_rest(content) {}

    quint32 number() { return fixed<quint32>(); }
    quint64 longNumber() { return fixed<quint64>(); }
    QByteArray bytes()
    {
        const std::optional<QByteArrayView> cell = takeRow(m_rest, 1).value_or(RowCells(1)).front();
        m_whole = m_whole && cell.has_value();
        return m_whole ? cell.value_or(QByteArrayView()).toByteArray() : QByteArray();
    }
    QString text() { return QString::fromUtf8(bytes()); }
    bool areWhole() const { return m_whole && m_rest.isEmpty(); }
    bool missing() const { return !m_whole; }

private:
    template<class Number>
    Number fixed()
    {
        m_whole = m_whole && m_rest.size() >= qsizetype(sizeof(Number));
        if (!m_whole)
            return 0;
        const auto value = qFromBigEndian<Number>(m_rest.data());
        m_rest = m_rest.sliced(sizeof(Number));
        return value;
    }
    QByteArrayView m_rest;
    bool m_whole = true;
};

/// The content of a packed block, nothing when it is damaged. The unpacked length is what the block says, and never
/// more: a few bytes may unpack to gigabytes.
std::optional<QByteArray> unpacked(QByteArrayView packed)
{
    constexpr qsizetype lengthBytes = sizeof(quint32);
    if (packed.size() < lengthBytes)
        return std::nullopt;
    uLongf length = qFromBigEndian<quint32>(packed.data());
    if (length > longestBlock)
        return std::nullopt;
    QByteArray content(qsizetype(length), Qt::Uninitialized);
    const QByteArrayView stream = packed.sliced(lengthBytes);
    const int status = ::uncompress(reinterpret_cast<Bytef *>(content.data()), &length,
                                    reinterpret_cast<const Bytef *>(stream.data()), uLong(stream.size()));
    if (status != Z_OK || qsizetype(length) != content.size())
        return std::nullopt;
    return content;
}

QString damaged(const QString &path)
{
    return QStringLiteral("The file [") + path
           + QStringLiteral("] is damaged or not complete. Nothing was taken from it.");
}

/// Reads one backup block by block.
class Reader
{
public:
    Reader(const QString &path, const BackupVisitor &visitor) : m_file(path), m_visitor(visitor) {}

    BackupContents run()
    {
        if (!m_file.open(QIODevice::ReadOnly)) {
            m_contents.fault = QStringLiteral("The file [") + m_file.fileName() + QStringLiteral("] can not be read: ")
                               + m_file.errorString() + u'.';
        } else if (m_file.read(magic.size()) != magic.toByteArray()) {
            m_contents.fault =
                QStringLiteral("The file [") + m_file.fileName() + QStringLiteral("] is no backup of Ledgora.");
        } else {
            m_hash.addData(magic.toByteArray());
            while (!m_ended && m_contents.fault.isEmpty() && !m_contents.stopped)
                readBlock();
        }
        return m_contents;
    }

private:
    void readBlock()
    {
        const QByteArray head = m_file.read(5);
        const quint32 length = head.size() == 5 ? qFromBigEndian<quint32>(head.constData() + 1) : 0;
        const QByteArray packed = length <= longestBlock ? m_file.read(length) : QByteArray();
        const auto content = packed.size() == qsizetype(length) ? unpacked(packed) : std::nullopt;
        const char kind = content ? head.at(0) : '\0';
        const bool isFirst = !std::exchange(m_begun, true);
        m_contents.unpacked += content ? content->size() : 0;
        if (isFirst != (kind == 'H') || !take(kind, content.value_or(QByteArray()))) {
            if (m_contents.fault.isEmpty() && !m_contents.stopped)
                m_contents.fault = damaged(m_file.fileName());
            return;
        }
        m_hash.addData(head);
        m_hash.addData(packed);
        if (!m_ended && !m_visitor.pause(m_file.pos(), m_file.size()))
            m_contents.stopped = true;
    }

    bool take(char kind, const QByteArray &content)
    {
        switch (kind) {
        case 'H':
            return takeHead(Parts(content));
        case 'T':
            return takeTable(Parts(content));
        case 'R':
            return takeRows(content);
        case 'F':
            return takeFile(Parts(content));
        case 'E':
            return takeEnd(Parts(content));
        default:
            return false;
        }
    }

    bool takeHead(Parts parts)
    {
        const quint32 version = parts.number();
        m_contents.head.schemaVersion = int(parts.number());
        m_contents.head.hostCode = parts.text();
        m_contents.head.made = parts.text();
        m_contents.head.program = parts.text();
        if (version > formatVersion)
            m_contents.fault =
                QStringLiteral("The backup [") + m_file.fileName()
                + QStringLiteral("] was made by a newer version of Ledgora. Please update Ledgora on this "
                                 "machine.");
        return version == formatVersion && parts.areWhole();
    }

    bool takeTable(Parts parts)
    {
        const QString table = parts.text();
        QStringList columns;
        for (quint32 count = parts.number(); count > 0 && !parts.missing(); --count)
            columns << parts.text();
        if (!parts.areWhole() || columns.isEmpty())
            return false;
        m_columns = size_t(columns.size());
        m_contents.tables.push_back({table});
        m_contents.stopped = !m_visitor.table(table, columns);
        return true;
    }

    bool takeRows(QByteArrayView rest)
    {
        while (!rest.isEmpty() && !m_contents.stopped && m_columns > 0) {
            const QByteArrayView from = rest;
            const auto row = takeRow(rest, m_columns);
            if (!row)
                return false;
            m_contents.tables.back().add(from.first(from.size() - rest.size()));
            m_contents.stopped = !m_visitor.row(*row);
        }
        return m_columns > 0;
    }

    bool takeFile(Parts parts)
    {
        const QString path = parts.text();
        const QByteArray content = parts.bytes();
        if (!parts.areWhole())
            return false;
        ++m_files;
        m_contents.stopped = !m_visitor.file(path, content);
        return true;
    }

    bool takeEnd(Parts parts)
    {
        std::vector<TableSum> told;
        for (quint32 count = parts.number(); count > 0 && !parts.missing(); --count) {
            TableSum sum{parts.text()};
            sum.rows = parts.longNumber();
            sum.sum = parts.longNumber();
            told.push_back(sum);
        }
        const quint32 files = parts.number();
        m_ended = parts.bytes() == m_hash.result() && parts.areWhole() && told == m_contents.tables && files == m_files
                  && m_file.atEnd();
        return m_ended;
    }

    QFile m_file;
    const BackupVisitor &m_visitor;
    BackupContents m_contents;
    QCryptographicHash m_hash{QCryptographicHash::Sha256};
    size_t m_columns = 0;
    quint32 m_files = 0;
    bool m_begun = false, m_ended = false;
};

} // namespace

BackupWriter::BackupWriter(const QString &path, const BackupHead &head)
    : m_path(QFileInfo(path).absoluteFilePath())
    , m_part(m_path + QStringLiteral(".part"))
{
    const QByteArray name = QFile::encodeName(m_part);
    ::unlink(name.constData());
    m_file = Descriptor(::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!m_file.isOpen())
        fail(QStringLiteral("can not be made"));
    write(magic.toByteArray());
    QByteArray content;
    putNumber(content, formatVersion);
    putNumber(content, quint32(head.schemaVersion));
    for (const QString &text : {head.hostCode, head.made, head.program})
        putText(content, text);
    writeBlock('H', content);
}

BackupWriter::~BackupWriter()
{
    if (m_file.isOpen() && !m_inPlace)
        ::unlink(QFile::encodeName(m_part).constData());
}

void BackupWriter::beginTable(const QString &table, const QStringList &columns)
{
    flushRows();
    QByteArray content;
    putText(content, table);
    putNumber(content, quint32(columns.size()));
    for (const QString &column : columns)
        putText(content, column);
    writeBlock('T', content);
    m_tables.push_back({table});
}

void BackupWriter::addRow(const QByteArray &row)
{
    m_tables.back().add(row);
    m_rows += row;
    if (m_rows.size() >= rowsABlock)
        flushRows();
}

void BackupWriter::addFile(const QString &path, const QByteArray &content)
{
    flushRows();
    QByteArray block;
    putText(block, path);
    if (content.size() > qsizetype(longestBlock) - block.size() - qsizetype(sizeof(quint32))) {
        m_fault = QStringLiteral("The file [") + path + QStringLiteral("] is too large for a backup.");
        return;
    }
    appendCell(block, content);
    writeBlock('F', block);
    ++m_files;
}

void BackupWriter::flushRows()
{
    if (!m_rows.isEmpty())
        writeBlock('R', m_rows);
    m_rows.resize(0);
}

void BackupWriter::finish()
{
    flushRows();
    QByteArray content;
    putNumber(content, quint32(m_tables.size()));
    for (const TableSum &sum : m_tables) {
        putText(content, sum.table);
        putLong(content, sum.rows);
        putLong(content, sum.sum);
    }
    putNumber(content, m_files);
    appendCell(content, m_hash.result());
    writeBlock('E', content);
    if (m_fault.isEmpty() && ::fsync(m_file.number()) != 0)
        fail(QStringLiteral("can not be written"));
}

void BackupWriter::rename()
{
    if (!m_fault.isEmpty())
        return;
    m_inPlace = std::rename(QFile::encodeName(m_part).constData(), QFile::encodeName(m_path).constData()) == 0;
    if (!m_inPlace)
        return fail(QStringLiteral("can not be renamed"));
    const QByteArray folder = QFile::encodeName(QFileInfo(m_path).path());
    const Descriptor above(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (above.isOpen())
        ::fsync(above.number());
}

void BackupWriter::writeBlock(char kind, const QByteArray &content)
{
    const QByteArray packed = qCompress(content, fast);
    QByteArray head(1, kind);
    putNumber(head, quint32(packed.size()));
    write(head);
    write(packed);
}

void BackupWriter::write(const QByteArray &bytes)
{
    m_hash.addData(bytes);
    for (qsizetype done = 0; done < bytes.size() && m_fault.isEmpty();) {
        const ssize_t count = ::write(m_file.number(), bytes.constData() + done, size_t(bytes.size() - done));
        if (count < 0 && errno != EINTR)
            fail(QStringLiteral("can not be written"));
        done += std::max<ssize_t>(count, 0);
    }
}

void BackupWriter::fail(const QString &what)
{
    if (m_fault.isEmpty())
        m_fault = QStringLiteral("The file [") + m_part + QStringLiteral("] ") + what + QStringLiteral(": ")
                  + QString::fromLocal8Bit(std::strerror(errno)) + u'.'; // NOLINT(concurrency-mt-unsafe)
}

BackupContents readBackup(const QString &path, const BackupVisitor &visitor)
{
    return Reader(path, visitor).run();
}

} // namespace ledgora::app
