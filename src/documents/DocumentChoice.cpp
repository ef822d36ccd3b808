#include "documents/DocumentChoice.h"

#include "store/Connection.h"
#include "store/SqlText.h"

namespace ledgora {

namespace {

QString anyOf(const QStringList &conditions)
{
    return conditions.isEmpty() ? QString() : QString(" and (" + conditions.join(" or ") + ')');
}

QString dayText(QDate day)
{
    return quoted(day.toString(Qt::ISODate));
}

} // namespace

QList<int> chosenDocuments(Connection &db, DocumentKind kind, const DocumentChoice &choice)
{
    const bool bills = kind == DocumentKind::Bill;
    const QString of = bills ? "Bill" : "Recp"; // how the columns of both tables begin
    QString where = " Where FirmId=" + number(choice.firmId);
    QStringList numbers;
    for (const DocumentChoice::Numbers &range : choice.numbers)
        numbers << of + "No Between " + number(range.from) + " and " + number(range.to);
    QStringList parties;
    for (const QString &code : choice.parties)
        parties << "Code_No=" + quoted(code);
    where += anyOf(numbers) + anyOf(parties);
    if (choice.seriesId != 0)
        where += " and " + of + "SerId=" + number(choice.seriesId);
    if (choice.year != 0)
        where += " and FYr=" + number(choice.year);
    if (choice.from.isValid())
        where += " and " + of + "Dt>=" + dayText(choice.from);
    if (choice.to.isValid())
        where += " and " + of + "Dt<" + dayText(choice.to.addDays(1));
    Recordset rows = db.Open("Select " + of + "SrNo from GST_" + of + 'M' + where + " order by " + of + "Dt," + of
                             + "No," + of + "SrNo");
    QList<int> ids;
    while (rows.next())
        ids << int(rows.integer(0));
    return ids;
}

} // namespace ledgora
