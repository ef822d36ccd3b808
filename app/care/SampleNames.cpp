#include "SampleNames.h"

#include <QStringView>
#include <iterator>

namespace ledgora::app {

namespace {

constexpr SamplePlace places[] = {
    {"NEW DELHI", "DELHI", 110001},
    {"MUMBAI", "MAHARASHTRA", 400001},
    {"PUNE", "MAHARASHTRA", 411001},
    {"NAGPUR", "MAHARASHTRA", 440001},
    {"AHMEDABAD", "GUJARAT", 380001},
    {"SURAT", "GUJARAT", 395001},
    {"VADODARA", "GUJARAT", 390001},
    {"RAJKOT", "GUJARAT", 360001},
    {"JAIPUR", "RAJASTHAN", 302001},
    {"JODHPUR", "RAJASTHAN", 342001},
    {"UDAIPUR", "RAJASTHAN", 313001},
    {"LUCKNOW", "UTTAR PRADESH", 226001},
    {"KANPUR", "UTTAR PRADESH", 208001},
    {"NOIDA", "UTTAR PRADESH", 201301},
    {"VARANASI", "UTTAR PRADESH", 221001},
    {"GURUGRAM", "HARYANA", 122001},
    {"FARIDABAD", "HARYANA", 121001},
    {"LUDHIANA", "PUNJAB", 141001},
    {"AMRITSAR", "PUNJAB", 143001},
    {"CHANDIGARH", "CHANDIGARH", 160001},
    {"DEHRADUN", "UTTARAKHAND", 248001},
    {"INDORE", "MADHYA PRADESH", 452001},
    {"BHOPAL", "MADHYA PRADESH", 462001},
    {"RAIPUR", "CHHATTISGARH", 492001},
    {"PATNA", "BIHAR", 800001},
    {"RANCHI", "JHARKHAND", 834001},
    {"KOLKATA", "WEST BENGAL", 700001},
    {"BHUBANESWAR", "ODISHA", 751001},
    {"GUWAHATI", "ASSAM", 781001},
    {"HYDERABAD", "TELANGANA", 500001},
    {"VISAKHAPATNAM", "ANDHRA PRADESH", 530001},
    {"BENGALURU", "KARNATAKA", 560001},
    {"MYSURU", "KARNATAKA", 570001},
    {"CHENNAI", "TAMIL NADU", 600001},
    {"COIMBATORE", "TAMIL NADU", 641001},
    {"KOCHI", "KERALA", 682001},
    {"PANAJI", "GOA", 403001},
};
constexpr const char *streets[] = {
    "M G ROAD",     "STATION ROAD", "NEHRU PLACE",  "GANDHI NAGAR", "LAL BAZAR",    "CIVIL LINES",     "PARK STREET",
    "RING ROAD",    "SADAR BAZAR",  "MODEL TOWN",   "SHASTRI MARG", "TEMPLE ROAD",  "INDUSTRIAL AREA", "S V ROAD",
    "JAWAHAR MARG", "KALYAN NAGAR", "ANNA SALAI",   "CANAL ROAD",   "GOVIND NAGAR", "TILAK ROAD",      "RAJAJI STREET",
    "CHURCH ROAD",  "LAKE VIEW",    "PRAKASH MARG", "MILL ROAD",
};
constexpr const char *houses[] = {"SHANTI BHAWAN", "GUPTA COMPLEX",    "LAXMI TOWER",    "SAGAR APARTMENTS",
                                  "GANESH PLAZA",  "OM CHAMBERS",      "ASHOKA HOUSE",   "TRADE CENTRE",
                                  "KRISHNA KUNJ",  "MAHAVIR BUILDING", "SAI RESIDENCY",  "VIJAY MANSION",
                                  "D'SOUZA HOUSE", "COMMERCE HOUSE",   "BUSINESS SQUARE"};
constexpr const char *givenNames[] = {
    "AARAV",  "ABHISHEK", "ADITI", "AJAY",   "AMIT",   "ANAND", "ANITA",   "ARJUN",  "ASHOK", "BHAVNA",
    "DEEPAK", "DINESH",   "DIVYA", "FARAH",  "GAURAV", "GEETA", "HARISH",  "IMRAN",  "ISHA",  "JASPREET",
    "KAVITA", "KIRAN",    "LATA",  "MAHESH", "MANOJ",  "MEENA", "MOHAN",   "NEHA",   "NITIN", "PADMA",
    "PANKAJ", "POOJA",    "RAHUL", "RAJESH", "RAKESH", "REKHA", "ROHIT",   "SANJAY", "SEEMA", "SHALINI",
    "SUNIL",  "SURESH",   "TARUN", "UMA",    "VARUN",  "VIJAY", "VINEETA", "YUSUF",
};
constexpr const char *surnames[] = {
    "AGARWAL", "BANERJEE", "BHATIA", "CHATTERJEE", "CHOPRA",     "D'COSTA", "DESAI",  "DUTTA",    "GARG",     "GHOSH",
    "GUPTA",   "IYER",     "JAIN",   "JOSHI",      "KAPOOR",     "KAUR",    "KHAN",   "KULKARNI", "MALHOTRA", "MEHTA",
    "MENON",   "MISHRA",   "NAIR",   "PANDEY",     "PATEL",      "PATIL",   "PILLAI", "RAO",      "REDDY",    "SAXENA",
    "SHAH",    "SHARMA",   "SINGH",  "SINHA",      "SRIVASTAVA", "THAKUR",  "TIWARI", "VERMA",    "YADAV",    "ZAVERI",
};
constexpr const char *houseNames[] = {
    "SHREE BALAJI", "AMBIKA",    "BHARAT",   "CHETAK",   "DURGA",    "EKTA",      "GAJANAN",   "GANGA",
    "HINDUSTAN",    "INDUS",     "JAI HIND", "KAVERI",   "KIRTI",    "LOTUS",     "MAHALAXMI", "NARMADA",
    "NATIONAL",     "NAVJEEVAN", "OM SAI",   "PRAGATI",  "RAJDHANI", "ROYAL",     "SAMRAT",    "SARASWATI",
    "SHAKTI",       "SUPREME",   "SURYA",    "TIRUPATI", "UNIQUE",   "VAISHNAVI", "VISHAL",    "ZENITH",
};
constexpr const char *trades[] = {
    "TEXTILES", "STEELS",   "EXPORTS", "PLASTICS",    "CHEMICALS", "FOODS",     "PHARMA",    "MOTORS",   "JEWELLERS",
    "BUILDERS", "CERAMICS", "TIMBERS", "ELECTRICALS", "LOGISTICS", "INFOTECH",  "PACKAGING", "POLYMERS", "AGRO",
    "PRINTERS", "HOTELS",   "CABLES",  "GARMENTS",    "SPICES",    "ENGINEERS", "REALTORS",
};

/// The item of the index, which counts on through the lists: after the last one the next list moves on by one.
template<size_t count>
const char *turned(const char *const (&items)[count], int &index)
{
    const char *item = items[size_t(index) % count];
    index /= int(count);
    return item;
}

/// A prime, so that neighbours in number are no neighbours in name; no list has as many items.
constexpr int stride = 7919;

/// The index in another order of the first `count`, then `rounds` of them again.
int scattered(int index, int count, int &rounds)
{
    rounds = index / count;
    return int(qint64(index % count) * stride % count);
}

QString withRound(const QString &name, int rounds)
{
    return rounds == 0 ? name : QString(name + QStringLiteral(" (%1)").arg(rounds + 1));
}

QString letter(int index)
{
    return {QChar('A' + index)};
}

} // namespace

const SamplePlace &samplePlace(Dice &dice)
{
    return dice.pick(places);
}

QString samplePin(const SamplePlace &place, Dice &dice)
{
    constexpr int postOffices = 40;
    return QString::number(place.pin + dice.below(postOffices));
}

QString sampleHouse(Dice &dice)
{
    const int number = dice.between(1, 499);
    return QString::number(number) + QStringLiteral(", ") + QLatin1String(dice.pick(houses));
}

QString sampleStreet(Dice &dice)
{
    return QLatin1String(dice.pick(streets));
}

QString samplePhone(Dice &dice)
{
    return QString::number(dice.between(70, 99))
           + QStringLiteral("%1").arg(dice.below(100'000'000), 8, 10, QLatin1Char('0'));
}

QString samplePerson(int index)
{
    constexpr int letters = 26;
    int rounds = 0;
    int place = scattered(index, int(std::size(givenNames) * std::size(surnames)) * letters, rounds);
    const QString given = QLatin1String(turned(givenNames, place));
    const QString surname = QLatin1String(turned(surnames, place));
    return withRound(given + u' ' + letter(place) + u' ' + surname, rounds);
}

QString sampleBusiness(int index)
{
    int rounds = 0;
    const int bare = int(std::size(houseNames) * std::size(trades));
    int place = scattered(index, bare, rounds);
    const QString name = QLatin1String(turned(houseNames, place));
    QString business = name + u' ' + QLatin1String(trades[place]);
    if (rounds > 0) { // a namesake bears its town
        const int town = (rounds - 1) % int(std::size(places));
        business += QStringLiteral(" (") + QLatin1String(places[town].city) + u')';
        rounds = (rounds - 1) / int(std::size(places));
    }
    return withRound(business, rounds);
}

QString sampleOffice(int index)
{
    constexpr const char *words[] = {"& ASSOCIATES", "& CO.", "AND PARTNERS", "TAX CONSULTANTS"};
    int rounds = 0;
    int place = scattered(index, int(std::size(surnames) * std::size(words)), rounds);
    const QString surname = QLatin1String(turned(surnames, place));
    return withRound(surname + u' ' + QLatin1String(words[place]), rounds);
}

QString samplePan(Dice &dice, char kind, QChar initial)
{
    constexpr int letters = 26;
    QString pan;
    for (int i = 0; i < 3; ++i)
        pan += letter(dice.below(letters));
    pan += QLatin1Char(kind);
    pan += initial;
    pan += QStringLiteral("%1").arg(dice.between(1, 9999), 4, 10, QLatin1Char('0'));
    return pan + letter(dice.below(letters));
}

/// The check character of a GSTIN: digits of base 36, every second one doubled, the two digits of each product added.
QString sampleGstin(const QString &stateCode, const QString &pan)
{
    constexpr QStringView digits = u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const int base = int(digits.size());
    const QString body = stateCode + pan + QStringLiteral("1Z");
    int sum = 0;
    for (qsizetype i = 0; i < body.size(); ++i) {
        const int product = int(digits.indexOf(body.at(i))) * (i % 2 == 0 ? 1 : 2);
        sum += product / base + product % base;
    }
    return body + digits.at((base - sum % base) % base);
}

} // namespace ledgora::app
