#pragma once

#include <QString>
#include <QStringList>

namespace ledgora::banklookup {

/// Records of a comma-separated text by RFC 4180: fields may stand in quotes, in which commas, line breaks and doubled
/// quotes belong to the field. A line that breaks these rules is skipped, and reading goes on with the next line; a
/// field is no longer than `longestField`, so that a lost quote never swallows the file.
class CsvReader
{
public:
    static constexpr qsizetype longestField = 1000;

    explicit CsvReader(QString text);

    /// The next whole record; False at the end.
    bool next(QStringList &fields);
    int skippedLines() const { return m_skipped; }

private:
    bool record(QStringList &fields);
    bool field(QString &value);
    bool quotedField(QString &value);
    bool endOfLine();
    void skipLine(qsizetype start);

    QString m_text;
    qsizetype m_at = 0;
    int m_skipped = 0;
};

} // namespace ledgora::banklookup
