#include "SampleMasters.h"

#include "Dice.h"
#include "SampleNames.h"
#include "masters/OtherClientStore.h"
#include "store/Dates.h"
#include "store/SqlText.h"
#include "store/StateList.h"
#include <QStringList>

namespace ledgora::app {

namespace {

enum Stream : quint64 { CompanyStream = 1, PartyStream, PlaceStream };

/// A number among all, and among those of its kind.
struct Turn
{
    char kind; ///< C company, L partnership, O other client
    int index; ///< from 0 within the kind
};

Turn turnOf(int index)
{
    constexpr int round = 20;
    constexpr int companies = 9;
    constexpr int partnerships = 3;
    const int rounds = index / round;
    const int place = index % round;
    if (place < companies)
        return {'C', rounds * companies + place};
    if (place < companies + partnerships)
        return {'L', rounds * partnerships + place - companies};
    return {'O', rounds * (round - companies - partnerships) + place - companies - partnerships};
}

/// What all kinds of holders have, drawn in one order.
struct Holder
{
    QString name, pan, gstin, house, street, city, state, pin, phone, email;
};

Holder holder(Dice &dice, const SamplePlace &place, const QString &name, char panKind, QChar initial,
              int registeredPercent)
{
    Holder made;
    made.name = name;
    made.state = QLatin1String(place.state);
    made.city = QLatin1String(place.city);
    made.house = sampleHouse(dice);
    made.street = sampleStreet(dice);
    made.pin = samplePin(place, dice);
    made.phone = samplePhone(dice);
    made.pan = samplePan(dice, panKind, initial);
    if (dice.chance(registeredPercent))
        made.gstin = sampleGstin(GETSTATECODEFORNAMEONLYGST(made.state), made.pan);
    made.email = QStringLiteral("accounts@") + made.pan.toLower() + QStringLiteral(".example");
    return made;
}

QString row(const QString &id, const QStringList &texts)
{
    QStringList values;
    if (!id.isEmpty())
        values << id;
    for (const QString &text : texts)
        values << quoted(text);
    return u'(' + values.join(u',') + u')';
}

const SamplePlace &companyPlace(const SamplePlan &plan, int id)
{
    Dice dice(quint64(plan.seed), PlaceStream, quint64(id));
    return samplePlace(dice);
}

/// A client of the host's own tables; its registered GSTIN lies in a table of its own under the same code.
SampleParty hostClient(const char *table, const QString &code, const Holder &made, const QString &masterRow)
{
    return {QLatin1String(table), code, made.state, masterRow,
            made.gstin.isEmpty() ? QString() : row({}, {code, made.gstin, {}})};
}

/// A firm or company of the hosts that keep all of them in one table.
SampleParty hostFirm(const SamplePlan &plan, const QString &code, const Holder &made)
{
    QStringList texts{code, made.name};
    const QStringList address{made.house, {}, made.street, {}, made.city, made.state, made.pin};
    const QStringList contacts{made.phone, {}, {}, made.email};
    const bool isT = plan.host == QLatin1String("T");
    if (isT)
        texts << made.pan << address;
    else
        texts << address << made.pan;
    return hostClient(isT ? "Main_Info" : "Main_Info1", code, made, row({}, texts + contacts));
}

SampleParty hostIndividual(const QString &code, const Holder &made)
{
    const QStringList texts{code,
                            made.name.section(u' ', 0, 0),
                            made.name.section(u' ', 1, 1),
                            made.name.section(u' ', 2),
                            made.house,
                            {},
                            made.street,
                            {},
                            made.city,
                            made.state,
                            made.pin,
                            made.pan,
                            {},
                            made.phone,
                            {},
                            {},
                            made.email};
    return hostClient("Owner1", code, made, row({}, texts));
}

SampleParty hostCompany(const SamplePlan &plan, Dice &dice, const SamplePlace &place, int index)
{
    constexpr int registered = 85;
    const QString name = sampleBusiness(index) + QStringLiteral(" PVT. LTD.");
    const Holder made = holder(dice, place, name, 'C', name.at(0), registered);
    const QString code = QStringLiteral("C%1").arg(index + 1, 5, 10, QLatin1Char('0'));
    if (plan.host != QLatin1String("C"))
        return hostFirm(plan, code, made);
    const QStringList texts{code, name, made.pan, made.house, {}, made.street, {}, made.city};
    return hostClient(
        "Comp_Master", code, made,
        row(number(index + 1), texts + QStringList{made.state, made.pin, made.phone, {}, {}, made.email}));
}

SampleParty hostPartnership(const SamplePlan &plan, Dice &dice, const SamplePlace &place, int index)
{
    constexpr int registered = 75;
    const QString name = sampleBusiness(index) + QStringLiteral(" LLP");
    const Holder made = holder(dice, place, name, 'F', name.at(0), registered);
    const QString code = QStringLiteral("L%1").arg(index + 1, 5, 10, QLatin1Char('0'));
    if (plan.host != QLatin1String("C"))
        return hostFirm(plan, code, made);
    const QStringList texts{code, name, made.pan, made.house, made.street, made.city};
    return hostClient("LLP_Master", QStringLiteral("LLP!~!") + code, made,
                      row({}, texts + QStringList{made.state, made.pin, made.phone, {}, {}, made.email}));
}

/// Persons, families, firms and trusts in turn. Host "G" has persons among its own clients.
SampleParty otherClient(const SamplePlan &plan, Dice &dice, const SamplePlace &place, int index)
{
    constexpr int registeredFirms = 70;
    constexpr int registeredPersons = 25;
    const int id = index + 1;
    const int kind = index % 8;
    const bool isPerson = kind < 5;
    QString name = isPerson ? samplePerson(index) : sampleBusiness(index);
    const QChar initial = isPerson ? name.section(u' ', 2, 2).at(0) : name.at(0);
    if (kind == 4)
        name += QStringLiteral(" HUF");
    else if (kind >= 5)
        name += kind == 7 ? QStringLiteral(" TRUST") : QStringLiteral(" AND SONS");
    const char panKind = "PPPPHFFT"[kind];
    const Holder made = holder(dice, place, name, panKind, initial, isPerson ? registeredPersons : registeredFirms);
    if (kind < 4 && plan.host == QLatin1String("G"))
        return hostIndividual(QStringLiteral("P%1").arg(id, 5, 10, QLatin1Char('0')), made);
    const QString code = otherClientCode(id);
    return {QStringLiteral("GST_OthCl"),
            code,
            made.state,
            row(number(id), {code,
                             made.name,
                             {},
                             made.house,
                             made.street,
                             {},
                             made.city,
                             made.pin,
                             made.state,
                             {},
                             {},
                             {},
                             made.phone,
                             made.email,
                             made.pan,
                             made.gstin}),
            {}};
}

struct SeriesText
{
    const char *kind, *text, *position;
};
/// "%1" is the financial year.
constexpr SeriesText seriesTexts[sampleSeriesAYear] = {
    {"B", "##/%1", "P"}, {"B", "AUD/%1/", "P"}, {"B", "-T", "S"}, {"R", "R/%1/##", "P"}};

} // namespace

SampleCompany sampleCompany(const SamplePlan &plan, int id)
{
    Dice dice(quint64(plan.seed), CompanyStream, quint64(id));
    const QString name = sampleOffice(id - 1);
    const QString head = name.section(u' ', 0, 0);
    const Holder made = holder(dice, companyPlace(plan, id), name, 'F', name.at(0), 100);
    const QString account = QString::number(dice.between(100'000'000, 999'999'999));
    const QString bank = QStringLiteral("STATE BANK OF INDIA");
    const QString ifsc = QStringLiteral("SBIN%1").arg(dice.between(1, 99'999), 7, 10, QLatin1Char('0'));
    const QString desig = name.endsWith(QLatin1String("CONSULTANTS")) ? QStringLiteral("TAX PRACTITIONERS")
                                                                      : QStringLiteral("CHARTERED ACCOUNTANTS");
    return {made.state, row(number(id), {name,
                                         desig,
                                         made.house,
                                         made.street,
                                         made.city,
                                         made.pin,
                                         made.state,
                                         {},
                                         {},
                                         {},
                                         {},
                                         {},
                                         made.phone,
                                         made.email,
                                         {},
                                         made.pan,
                                         made.gstin,
                                         name,
                                         bank,
                                         made.city,
                                         account,
                                         ifsc,
                                         QStringLiteral("Payable within 15 days"),
                                         samplePerson(id).section(u' ', 0, 1) + u' ' + head,
                                         QStringLiteral("PARTNER"),
                                         {}})};
}

SampleParty sampleParty(const SamplePlan &plan, int index)
{
    Dice dice(quint64(plan.seed), PartyStream, quint64(index));
    constexpr int atHome = 66;
    const SamplePlace &place = dice.chance(atHome) ? companyPlace(plan, index % plan.companies + 1) : samplePlace(dice);
    const Turn turn = turnOf(index);
    if (turn.kind == 'C')
        return hostCompany(plan, dice, place, turn.index);
    return turn.kind == 'L' ? hostPartnership(plan, dice, place, turn.index)
                            : otherClient(plan, dice, place, turn.index);
}

int sampleSeriesId(const SamplePlan &plan, int year, int place)
{
    return (year - plan.from) * sampleSeriesAYear + place + 1;
}

QString sampleSeriesRow(const SamplePlan &plan, int year, int place)
{
    const SeriesText &series = seriesTexts[place];
    QString text = QLatin1String(series.text);
    text.replace(QStringLiteral("%1"), financialYearText(year));
    return '(' + number(sampleSeriesId(plan, year, place)) + ',' + quoted(QLatin1String(series.kind)) + ','
           + number(year) + ',' + quoted(text) + ',' + quoted(QLatin1String(series.position)) + ')';
}

} // namespace ledgora::app
