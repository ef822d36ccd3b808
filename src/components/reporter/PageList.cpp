#include "components/reporter/PageList.h"

namespace ledgora::reporter {

void Drawing::add(const Drawing &other, QPointF offset)
{
    for (FilledArea filled : other.areas) {
        filled.area.translate(offset);
        areas.push_back(filled);
    }
    for (DrawnPicture picture : other.pictures) {
        picture.area.translate(offset);
        pictures.push_back(std::move(picture));
    }
    for (Rule rule : other.rules) {
        rule.from += offset;
        rule.to += offset;
        rules.push_back(rule);
    }
    for (TextPiece text : other.texts) {
        text.baseline += offset;
        texts.push_back(std::move(text));
    }
}

QString textOf(const Page &page)
{
    QString all;
    for (const TextPiece &piece : page.drawing.texts) {
        all += piece.text;
        all += QLatin1Char('\n');
    }
    return all;
}

} // namespace ledgora::reporter
