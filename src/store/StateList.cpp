#include "store/StateList.h"

#include <algorithm>
#include <array>

namespace ledgora {

namespace {

struct State
{
    const char *code;
    const char *name;
};

constexpr std::array states = {
    State{"35", "ANDAMAN & NICOBAR ISLANDS"},
    State{"37", "ANDHRA PRADESH"},
    State{"12", "ARUNACHAL PRADESH"},
    State{"18", "ASSAM"},
    State{"10", "BIHAR"},
    State{"04", "CHANDIGARH"},
    State{"22", "CHHATTISGARH"},
    State{"26", "DADRA & NAGAR HAVELI"},
    State{"25", "DAMAN & DIU"},
    State{"07", "DELHI"},
    State{"30", "GOA"},
    State{"24", "GUJARAT"},
    State{"06", "HARYANA"},
    State{"02", "HIMACHAL PRADESH"},
    State{"01", "JAMMU & KASHMIR"},
    State{"20", "JHARKHAND"},
    State{"29", "KARNATAKA"},
    State{"32", "KERALA"},
    State{"31", "LAKSHADWEEP"},
    State{"23", "MADHYA PRADESH"},
    State{"27", "MAHARASHTRA"},
    State{"14", "MANIPUR"},
    State{"17", "MEGHALAYA"},
    State{"15", "MIZORAM"},
    State{"13", "NAGALAND"},
    State{"21", "ODISHA"},
    State{"34", "PUDUCHERRY"},
    State{"03", "PUNJAB"},
    State{"08", "RAJASTHAN"},
    State{"11", "SIKKIM"},
    State{"33", "TAMIL NADU"},
    State{"36", "TELANGANA"},
    State{"16", "TRIPURA"},
    State{"09", "UTTAR PRADESH"},
    State{"05", "UTTARAKHAND"},
    State{"19", "WEST BENGAL"},
    State{"98", "OTHER TERRITORY"},
};

/// Spellings that addresses in the hosts' tables still carry.
struct OldSpelling
{
    const char *old;
    const char *present;
};

constexpr std::array oldSpellings = {
    OldSpelling{"UTTARANCHAL", "UTTARAKHAND"},
    OldSpelling{"ORISSA", "ODISHA"},
    OldSpelling{"CHHATISHGARH", "CHHATTISGARH"},
    OldSpelling{"LAKSHDWEEP", "LAKSHADWEEP"},
    OldSpelling{"LAKHSWADEEP", "LAKSHADWEEP"},
    OldSpelling{"TAMILNADU", "TAMIL NADU"},
    OldSpelling{"PONDICHERRY", "PUDUCHERRY"},
    OldSpelling{"ANDAMAN AND NICOBAR ISLANDS", "ANDAMAN & NICOBAR ISLANDS"},
    OldSpelling{"TELENGANA", "TELANGANA"},
};

QString displayForm(const State &state)
{
    return QString::fromLatin1(state.name) + " (" + QString::fromLatin1(state.code) + ')';
}

QString presentSpelling(const QString &name)
{
    for (const OldSpelling &spelling : oldSpellings)
        if (name == QLatin1String(spelling.old))
            return QString::fromLatin1(spelling.present);
    return name;
}

template<typename Matches>
const State *findState(Matches matches)
{
    const auto found = std::find_if(states.begin(), states.end(), matches);
    return found == states.end() ? nullptr : &*found;
}

const State *byNameCode(const QString &nameCode)
{
    const QString wanted = nameCode.trimmed().toUpper();
    return findState([&](const State &state) { return displayForm(state) == wanted; });
}

const State *byCode(const QString &code)
{
    return findState([&](const State &state) { return code == QLatin1String(state.code); });
}

const State *byName(const QString &name)
{
    const QString wanted = presentSpelling(name.trimmed().toUpper());
    return findState([&](const State &state) { return wanted == QLatin1String(state.name); });
}

QString nameOf(const State *state)
{
    return state ? QString::fromLatin1(state->name) : QString();
}

QString codeOf(const State *state)
{
    return state ? QString::fromLatin1(state->code) : QString();
}

/// The entry of the lists that reads so, without regard to case.
QString entryFor(const QString &name, const QString &code)
{
    const QString wanted = QString(name + " (" + code + ')').toUpper();
    const State *state = findState([&](const State &each) { return displayForm(each) == wanted; });
    return state ? displayForm(*state) : QString();
}

} // namespace

QString DOPROCSTATELISTGST(const QString &operation, const QString &value)
{
    if (operation == "FILLCBO")
        return u'|' + stateDisplayForms().join(u'|');
    if (operation == "NAME_FOR_NAMECODE")
        return nameOf(byNameCode(value));
    if (operation == "CODE_FOR_NAMECODE")
        return codeOf(byNameCode(value));
    if (operation == "NAME_FOR_CODE")
        return nameOf(byCode(value));
    if (operation == "CODE_FOR_NAME")
        return codeOf(byName(value));
    return {};
}

QString GETSTATENAMEFORNAMECODEGST(const QString &nameCode)
{
    return DOPROCSTATELISTGST("NAME_FOR_NAMECODE", nameCode);
}

QString GETSTATECODEFORNAMECODEGST(const QString &nameCode)
{
    return DOPROCSTATELISTGST("CODE_FOR_NAMECODE", nameCode);
}

QString GETSTATENAMEFORCODEONLYGST(const QString &code)
{
    return DOPROCSTATELISTGST("NAME_FOR_CODE", code);
}

QString GETSTATECODEFORNAMEONLYGST(const QString &name)
{
    return DOPROCSTATELISTGST("CODE_FOR_NAME", name);
}

QStringList stateDisplayForms()
{
    QStringList forms;
    for (const State &state : states)
        forms += displayForm(state);
    return forms;
}

QString stateEntryForName(const QString &name)
{
    return entryFor(name, GETSTATECODEFORNAMEONLYGST(name));
}

QString stateEntryForCode(const QString &code)
{
    return entryFor(GETSTATENAMEFORCODEONLYGST(code), code);
}

} // namespace ledgora
