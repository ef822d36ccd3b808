#include "store/Identifiers.h"

#include "store/Connection.h"
#include "store/ErrorLog.h"
#include "store/SqlText.h"
#include <QStringList>
#include <algorithm>

namespace ledgora {

namespace {

bool isCapital(QChar c)
{
    return c >= u'A' && c <= u'Z';
}

bool isLetter(QChar c)
{
    return isCapital(c) || (c >= u'a' && c <= u'z');
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool allOf(QStringView text, bool (*belongs)(QChar))
{
    return std::all_of(text.begin(), text.end(), belongs);
}

/// Ten characters: capitals, digits, one capital.
bool hasShape(QStringView text, qsizetype capitals)
{
    return text.size() == 10 && allOf(text.left(capitals), isCapital)
           && allOf(text.mid(capitals, 9 - capitals), isDigit) && isCapital(text.back());
}

bool isPanWord(const QString &text)
{
    static const QStringList words = {"PANNOTAVBL", "PANINVALID", "PANAPPLIED"};
    return words.contains(text, Qt::CaseInsensitive);
}

bool isReservedWord(const QString &code)
{
    static const QStringList words = {"CON", "PRN", "AUX", "CLOCK$", "NUL"};
    const bool port = code.size() == 4 && (code.startsWith(u"COM") || code.startsWith(u"LPT"));
    return words.contains(code) || (port && code.back() >= u'1' && code.back() <= u'9');
}

/// The table in which a host keeps its clients, and its column of codes.
struct CodeTable
{
    const char *host, *table, *column;
};
constexpr CodeTable clientTables[] = {
    {"G", "main_info1", "code_no"}, {"G", "Owner1", "code"},       {"F", "FBT_Info", "code_no"},
    {"S", "Main_Info", "code_no"},  {"T", "Main_Info", "code_no"}, {"R", "Main_Info", "code_no"},
    {"C", "Comp_Master", "code"},
};

bool holdsCode(Connection &db, const char *table, const char *column, const QString &code)
{
    return db.Open("Select * from " + QLatin1String(table) + " Where " + QLatin1String(column) + '=' + quoted(code))
        .next();
}

/// An office that never used the older side has no other clients of it; that is no failure.
bool hasOlderSide(Connection &db)
{
    return db.Open(QStringLiteral("Show Tables Like 'biller'")).next();
}

bool isCodeAllotted(Connection &db, const QString &hostCode, const QString &code)
{
    const bool byHost = std::ranges::any_of(clientTables, [&](const CodeTable &clients) {
        return hostCode == QLatin1String(clients.host) && holdsCode(db, clients.table, clients.column, code);
    });
    return byHost || (hasOlderSide(db) && holdsCode(db, "biller", "code_no", code));
}

bool isAllowedInCode(QChar c)
{
    return isCapital(c) || isDigit(c) || c == u'-';
}

} // namespace

bool hasPanShape(QStringView text)
{
    return hasShape(text, 5);
}

bool hasTanShape(QStringView text)
{
    return hasShape(text, 4);
}

PanFault panFault(const QString &text)
{
    if (text.isEmpty() || isPanWord(text))
        return PanFault::None;
    if (!hasPanShape(text))
        return PanFault::Shape;
    return QStringView(u"PHCJFATBLG").contains(text.at(3)) ? PanFault::None : PanFault::FourthCharacter;
}

bool IsGstinShape(const QString &text)
{
    return text.size() == 15 && allOf(text, [](QChar c) { return isCapital(c) || isDigit(c); });
}

bool isIfsCode(const QString &text)
{
    if (text.isEmpty())
        return true;
    const QStringView code(text);
    return code.size() == 11 && allOf(code.left(4), isLetter) && code.at(4) == u'0'
           && allOf(code.mid(5), [](QChar c) { return isLetter(c) || isDigit(c); });
}

QString ifsCodeMessage()
{
    return QStringLiteral("Invalid IFS Code !\nShould be exactly 11 in Length and Format should be First 4 Alphabets "
                          "[A-Z], Fifth [0], Next 6 AlphaNumerics [A-Z] or [0-9].");
}

QString gstinStateFault(const QString &gstin, const QString &stateCode, const QString &stateShown)
{
    if (gstin.isEmpty() || stateCode.isEmpty() || gstin.left(2) == stateCode)
        return {};
    return "Invalid 'GSTIN' ! First 2-Digit shoule be State Code [" + stateCode + "] for State [" + stateShown + "].";
}

QString gstinPanFault(const QString &gstin, const QString &pan)
{
    if (gstin.isEmpty() || pan.isEmpty() || gstin.mid(2, 10) == pan)
        return {};
    return "Invalid 'GSTIN' ! Should contain PAN [" + pan + "] from 3rd to 12th Character.";
}

bool isEmailAddress(const QString &text)
{
    if (text.trimmed().isEmpty())
        return true;
    const qsizetype at = text.indexOf(u'@');
    return at >= 0 && text.indexOf(u'.', at) - at >= 2;
}

QString emailMessage()
{
    return QStringLiteral("Insert a valid E-mail address.");
}

QString VALIDATECODENO(Connection &db, const QString &hostCode, const QString &code, const CodeNoTests &tests)
{
    const ErrorSite site("MODGST", "VALIDATECODENO");
    if (tests.required && code.isEmpty())
        return QStringLiteral("Please Specify Code No.");
    if (tests.maxLength > 0 && code.size() > tests.maxLength)
        return "Code No. length can not exceed " + QString::number(tests.maxLength) + " characters.";
    if (tests.onlyAllowed && !allOf(code, isAllowedInCode))
        return QStringLiteral("Only Numbers '0 to 9' , Characters 'A to Z' , '-' are allowed in Code No.");
    if (tests.reservedWords && isReservedWord(code))
        return "Code No. [" + code + "] is not allowed (Reserved word by Windows).";
    if (tests.unique && isCodeAllotted(db, hostCode, code))
        return "Code No. [" + code + "] has already been allotted.";
    return {};
}

} // namespace ledgora
