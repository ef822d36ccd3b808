#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

class QPainter;

namespace ledgora::reporter {

// Text of Indian scripts is shaped: glyphs stand for several characters, or in another order, and from them alone a
// reader gets the words wrong when it searches or copies. The PDF writer knows glyphs only. So such a text is drawn
// between two marks, dots far outside of the paper, and when the file is made each pair of them is turned into the
// format's own bracket that tells the characters.

/// Whether the glyphs of the text do not tell its characters by themselves.
bool needsCharacters(const QString &text);

/// The marks before and behind the text of that number; the painter's unit is the twip, and nothing but the page's
/// own scale lies between.
void beginCharacters(QPainter &painter, int number);
void endCharacters(QPainter &painter);

/// The texts of a file that were drawn between marks, by their numbers, and the pages (from 0) on which they stand.
struct MarkedTexts
{
    std::vector<QString> texts;
    std::vector<int> pages;
};

/// The file with brackets in place of the marks. A file that can not be taken apart comes back as it is: what it shows
/// is right, and the marks show nowhere.
QByteArray withCharacters(const QByteArray &pdf, const MarkedTexts &marked);

} // namespace ledgora::reporter
