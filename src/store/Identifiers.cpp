#include "store/Identifiers.h"

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

bool hasPanShape(QStringView text)
{
    return text.size() == 10 && allOf(text.left(5), isCapital) && allOf(text.mid(5, 4), isDigit)
           && isCapital(text.back());
}

bool isPanWord(const QString &text)
{
    static const QStringList words = {"PANNOTAVBL", "PANINVALID", "PANAPPLIED"};
    return words.contains(text, Qt::CaseInsensitive);
}

} // namespace

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

} // namespace ledgora
