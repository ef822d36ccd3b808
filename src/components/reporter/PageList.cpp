#include "components/reporter/PageList.h"

namespace ledgora::reporter {

namespace {

class MadePages final : public PageSource
{
public:
    explicit MadePages(PageList pages) : m_pages(std::make_shared<const PageList>(std::move(pages))) {}

    int count() const override { return static_cast<int>(m_pages->size()); }
    QSizeF paper(int page) const override { return (*m_pages)[page].size; }
    std::shared_ptr<const Page> page(int page) const override { return {m_pages, &(*m_pages)[page]}; }
    bool mayHold(int, const QStringList &) const override { return true; }

private:
    std::shared_ptr<const PageList> m_pages;
};

} // namespace

Pages::Pages(PageList pages) : m_source(std::make_shared<MadePages>(std::move(pages))) {}

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
