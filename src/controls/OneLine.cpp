#include "controls/OneLine.h"

#include <QLineEdit>
#include <QValidator>

namespace ledgora {

namespace {

bool breaksTheLine(QChar c)
{
    return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line
           || c.category() == QChar::Separator_Paragraph;
}

/// True for a surrogate without its partner.
bool isHalf(const QString &text, qsizetype at)
{
    const QChar c = text.at(at);
    if (c.isHighSurrogate())
        return at + 1 >= text.size() || !text.at(at + 1).isLowSurrogate();
    return c.isLowSurrogate() && (at == 0 || !text.at(at - 1).isHighSurrogate());
}

/// Mends what comes in and refuses nothing.
class OneLineText : public QValidator
{
public:
    OneLineText(QLineEdit &field, bool upperCase) : QValidator(&field), m_field(field), m_upperCase(upperCase) {}

    State validate(QString &input, int &cursor) const override
    {
        if (m_field.isEnabled()) {
            const auto before = oneLine(input.left(cursor)).size();
            input = oneLine(input);
            cursor = int(before);
            for (QChar &c : input)
                c = m_upperCase ? c.toUpper() : c; // one for one: the cursor stays right
        }
        return Acceptable;
    }

private:
    QLineEdit &m_field;
    bool m_upperCase;
};

} // namespace

QString oneLine(QString text)
{
    for (auto at = text.size() - 1; at >= 0; --at) {
        if (breaksTheLine(text.at(at)))
            text[at] = u' ';
        else if (isHalf(text, at))
            text.remove(at, 1);
    }
    return text;
}

bool isTypedCharacter(const QString &keyText)
{
    return !keyText.isEmpty() && (keyText.at(0).isPrint() || keyText.at(0).isSurrogate());
}

void keepOneLine(QLineEdit &field, bool upperCase)
{
    field.setValidator(new OneLineText(field, upperCase));
}

} // namespace ledgora
