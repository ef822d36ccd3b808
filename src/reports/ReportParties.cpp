#include "reports/ReportParties.h"

#include "masters/PartyDirectory.h"
#include "reports/ReportFrame.h"
#include "store/SqlText.h"
#include "store/Words.h"
#include <QSet>
#include <QStringList>
#include <utility>

namespace ledgora {

namespace {

constexpr auto tickMark = "Y";
constexpr std::pair<int, int> listed[] = {
    {ListedAddress, PartyAddress}, {ListedCode, PartyCode}, {ListedState, PartyState},   {ListedName, PartyName},
    {ListedPhone, PartyPhone},     {ListedFax, PartyFax},   {ListedMobile, PartyMobile}, {ListedEmail, PartyEmail},
    {ListedGstin, PartyGstin},     {ListedPan, PartyPan},
};

QString detailsOf(const ReportRequest &request, int row)
{
    const PartyDetails &asked = request.details;
    QString details;
    const auto add = [&](bool wanted, const char *label, const QString &value) {
        if (wanted && !value.isEmpty())
            details += QLatin1String(lineBreak) + QLatin1String(label) + value;
    };
    const auto text = [&](int column) { return request.parties.text(row, column); };
    add(asked.gstin, "GSTIN: ", text(ListedGstin));
    add(asked.pan, "PAN: ", text(ListedPan));
    add(asked.address, "", inNameCase(request.properCase, text(ListedAddress)));
    add(asked.phone, "Ph.No.: ", text(ListedPhone));
    add(asked.fax, "Fax: ", text(ListedFax));
    add(asked.mobile, "Mobile: ", text(ListedMobile));
    add(asked.email, "E-mail: ", text(ListedEmail));
    return request.properCase ? details : details.toUpper();
}

/// A code list of `quoted` values, split at its quotes: a code may hold a comma.
QStringList codesOf(const QString &codes)
{
    QStringList list;
    for (qsizetype at = codes.indexOf(u'\''); at >= 0; at = codes.indexOf(u'\'', at)) {
        QString code;
        for (++at; at < codes.size(); ++at) {
            const bool doubled = at + 1 < codes.size() && codes.at(at + 1) == codes.at(at);
            if (codes.at(at) == u'\'' && !doubled)
                break;
            if ((codes.at(at) == u'\'' || codes.at(at) == u'\\') && doubled)
                ++at;
            code += codes.at(at);
        }
        list << code;
        ++at;
    }
    return list;
}

/// Row of each code; of equal codes the first.
QHash<QString, int> rowsByCode(const Cells &parties)
{
    QHash<QString, int> rows;
    rows.reserve(parties.rows());
    for (int row = parties.rows() - 1; row >= parties.fixedRows(); --row)
        rows.insert(parties.text(row, ListedCode), row);
    return rows;
}

} // namespace

Cells emptyReportParties()
{
    Cells parties(ListedColumnCount, 1);
    parties.setRow(0, {QStringLiteral("Addr"), QStringLiteral("Code No."), QStringLiteral("State"), QString(),
                       QString(), QString(), QStringLiteral("Name"), QStringLiteral("Phone"), QStringLiteral("Fax"),
                       QStringLiteral("Mob"), QStringLiteral("Email"), QStringLiteral("GSTIN"), QStringLiteral("PAN"),
                       QStringLiteral("Tick")});
    return parties;
}

void loadReportParties(Connection &db, const QString &hostCode, Cells &parties)
{
    Cells directory = emptyContactDirectory();
    LOADCLLIST(db, hostCode, directory);
    parties.clearData();
    parties.setRows(directory.rows());
    for (int row = parties.fixedRows(); row < parties.rows(); ++row) {
        for (const auto &[to, from] : listed)
            parties.setText(row, to, directory.text(row, from));
    }
}

void reloadReportParties(Connection &db, const QString &hostCode, Cells &parties)
{
    QSet<QString> ticked;
    for (int row = parties.fixedRows(); row < parties.rows(); ++row) {
        if (parties.text(row, ListedTick) == QLatin1String(tickMark))
            ticked.insert(parties.text(row, ListedCode));
    }
    loadReportParties(db, hostCode, parties);
    for (int row = parties.fixedRows(); row < parties.rows(); ++row) {
        if (ticked.contains(parties.text(row, ListedCode)))
            parties.setText(row, ListedTick, QLatin1String(tickMark));
    }
}

QString codeList(const ReportRequest &request)
{
    QStringList codes;
    codes.reserve(qsizetype(request.rows.size()));
    for (const int row : request.rows)
        codes << quoted(request.parties.text(row, ListedCode));
    return codes.join(u',');
}

std::vector<int> tickedRows(const Cells &parties)
{
    std::vector<int> rows;
    for (int row = parties.fixedRows(); row < parties.rows(); ++row) {
        if (!parties.isHidden(row) && parties.text(row, ListedTick) == QLatin1String(tickMark))
            rows.push_back(row);
    }
    return rows;
}

int showGroup(Cells &parties, const QString &codes)
{
    for (int row = parties.fixedRows(); row < parties.rows(); ++row)
        parties.setHidden(row, !codes.isEmpty());
    if (codes.isEmpty())
        return parties.hasData() ? parties.fixedRows() : -1;
    const QHash<QString, int> rows = rowsByCode(parties);
    int first = -1;
    for (const QString &code : codesOf(codes)) {
        const int row = rows.value(code, -1);
        if (row < 0)
            continue;
        parties.setHidden(row, false);
        if (first < 0)
            first = row;
    }
    return first;
}

PartyCell partyCell(const ReportRequest &request, int row, bool boldAlone)
{
    const QString name = inNameCase(request.properCase, request.parties.text(row, ListedName));
    const QString details = detailsOf(request, row);
    if (details.isEmpty() && !boldAlone)
        return {name, false};
    return {bold(name) + details, !details.isEmpty()};
}

PartyCells::PartyCells(const ReportRequest &request) : m_request(request), m_rows(rowsByCode(request.parties)) {}

const PartyCell &PartyCells::of(const QString &code)
{
    const int row = m_rows.value(code, -1);
    if (row < 0)
        return m_none;
    auto cell = m_cells.find(row);
    if (cell == m_cells.end())
        cell = m_cells.insert(row, partyCell(m_request, row));
    return *cell;
}

QString PartyCells::name(const QString &code) const
{
    return m_request.parties.text(m_rows.value(code, -1), ListedName);
}

} // namespace ledgora
