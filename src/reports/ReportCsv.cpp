#include "reports/ReportCsv.h"

#include "reports/ReportCells.h"
#include "reports/ReportFile.h"
#include <algorithm>

namespace ledgora {

namespace {

/// A number as reports show one: a sign, digits, commas between them, at most one point; and the dash of zero amounts.
bool looksLikeNumber(QStringView text)
{
    if (text == u"-")
        return true;
    if (text.startsWith(u'-') || text.startsWith(u'+'))
        text = text.sliced(1);
    const auto digits = std::count_if(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    return digits > 0 && text.count(u'.') <= 1 && std::all_of(text.begin(), text.end(), [](QChar c) {
               return (c >= u'0' && c <= u'9') || c == u',' || c == u'.';
           });
}

QString fieldOf(QStringView cell)
{
    QString text = shownText(cell);
    const bool formula = !text.isEmpty() && QStringView(u"=+-@").contains(text[0]) && !looksLikeNumber(text);
    if (formula)
        text.prepend(u'\'');
    const bool quoted = std::any_of(text.cbegin(), text.cend(),
                                    [](QChar c) { return c == u'"' || c == u',' || c == u'\r' || c == u'\n'; });
    if (!quoted)
        return text;
    return u'"' + text.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString recordOf(const QStringList &fields)
{
    // An empty record would be none at all.
    const bool blank = fields.size() < 2 && fields.join(QString()).isEmpty();
    return (blank ? QStringLiteral("\"\"") : fields.join(u',')) + QStringLiteral("\r\n");
}

QString rowRecord(const ReportRows &rows, int row)
{
    const RowFormat &format = rows.format(row);
    QStringList fields;
    for (int cell = 0; cell < rows.cells(row); ++cell) {
        const bool exists = format.widths[cell] > 0;
        if (exists || format.inTable)
            fields << (exists ? fieldOf(rows.cell(row, cell)) : QString());
    }
    return recordOf(fields);
}

} // namespace

bool writeReportCsv(const ReportRows &rows, QIODevice &out, const Progress &progress)
{
    ReportSink sink(out, progress, rows.size());
    QString pending; // printed text whose line is not ended
    const auto flush = [&] {
        if (!shownText(pending).trimmed().isEmpty())
            sink.put(recordOf({fieldOf(pending)}));
        pending.clear();
    };
    for (int entry = 0; entry < rows.size(); ++entry) {
        if (rows.kind(entry) == ReportRows::Kind::Row) {
            flush();
            sink.put(rowRecord(rows, entry));
        } else if (rows.kind(entry) == ReportRows::Kind::Text) {
            const QStringView text = rows.text(entry);
            pending += text.endsWith(u';') ? text.chopped(1) : text;
            if (!text.endsWith(u';'))
                flush();
        }
        if (!sink.rowDone(entry))
            return false;
    }
    flush();
    return sink.finish();
}

QString saveReportCsv(const ReportRows &rows, const QString &path, const Progress &progress)
{
    return saveReportFile(path, [&](QIODevice &out) { return writeReportCsv(rows, out, progress); });
}

} // namespace ledgora
