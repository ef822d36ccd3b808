#pragma once

#include "TableRows.h"
#include "app/Descriptor.h"
#include <QCryptographicHash>
#include <QFile>
#include <QString>
#include <functional>
#include <map>

namespace ledgora::app {

// A backup file: the eight bytes "LEDGORA" and a line feed, then blocks to its end. A block is a letter for its kind,
// four bytes of length (all numbers with the highest byte first), and so many bytes: its content as packed by qCompress
// (the unpacked length in four bytes, then a zlib stream).
//
//   H  head, the first block: format version, schema version (four bytes each), then texts: host code, moment of the
//      backup (ISO 8601), program version
//   T  a table begins: its name, the number of its columns (four bytes), their names
//   R  rows of that table, as TableRows.h describes them
//   F  a file of the office's folder: path below it with "/", content
//   E  end: number of tables (four bytes), of each one its name, number of rows and checksum (eight bytes each); number
//      of files (four bytes); SHA-256 of all bytes before this block. Nothing follows.
//
// A text or content is four bytes of length and so many bytes, texts in UTF-8. No block comes to more than 128 MB,
// packed or unpacked: what a damaged or hostile file can make a reader hold.

struct BackupHead
{
    int schemaVersion = 0;
    QString hostCode;
    QString made;
    QString program;
};

/// Writes a backup aside, in PATH.part (mode 0600), which goes when the object does unless it was renamed in place.
/// After the first failure nothing more is written; `fault()` tells it.
class BackupWriter
{
public:
    BackupWriter(const QString &path, const BackupHead &head);
    BackupWriter(const BackupWriter &) = delete;
    BackupWriter &operator=(const BackupWriter &) = delete;
    ~BackupWriter();

    void beginTable(const QString &table, const QStringList &columns);
    void addRow(const QByteArray &row);
    /// A file that does not go into one block is a failure.
    void addFile(const QString &path, const QByteArray &content);
    /// Writes the end and waits until the disk has all.
    void finish();
    /// Puts the finished file in place of one of that name.
    void rename();

    QString partPath() const { return m_part; }
    QString fault() const { return m_fault; }

private:
    void write(const QByteArray &bytes);
    void writeBlock(char kind, const QByteArray &content);
    void flushRows();
    void fail(const QString &what);

    QString m_path, m_part, m_fault;
    Descriptor m_file;
    QCryptographicHash m_hash{QCryptographicHash::Sha256};
    std::vector<TableSum> m_tables;
    QByteArray m_rows;
    quint32 m_files = 0;
    bool m_inPlace = false;
};

/// Takes what a backup holds, in its order; returning False ends the reading.
struct BackupVisitor
{
    std::function<bool(const QString &table, const QStringList &columns)> table = [](const auto &, const auto &) {
        return true;
    };
    std::function<bool(const RowCells &row)> row = [](const auto &) { return true; };
    std::function<bool(const QString &path, const QByteArray &content)> file = [](const auto &, const auto &) {
        return true;
    };
    /// Between two blocks.
    std::function<bool(qint64 done, qint64 total)> pause = [](qint64, qint64) { return true; };
};

/// What came of reading a backup.
struct BackupContents
{
    QString fault;        ///< "" when the file is whole: all lengths, sums and the SHA-256 fit
    bool stopped = false; ///< by the visitor
    BackupHead head;
    std::vector<TableSum> tables;
    qint64 unpacked = 0; ///< bytes of all rows and files
};

/// Reads a backup file. What the visitor has taken counts only when there is no fault in the end.
BackupContents readBackup(const QString &path, const BackupVisitor &visitor);

} // namespace ledgora::app
