#include "components/TemplateText.h"

#include "components/reporter/TemplateCache.h"

namespace ledgora {

namespace {

QString shownText(const std::vector<reporter::Block> &blocks)
{
    QString text;
    reporter::eachParagraph(blocks, [&text](const reporter::Paragraph &paragraph) {
        for (const reporter::Run &run : paragraph.runs)
            text += run.format.hidden ? QString() : run.text;
        text += u'\n';
    });
    return text;
}

} // namespace

QString templateText(const QString &path, QString &fault)
{
    const auto read = reporter::TemplateCache().load(path, fault);
    if (read)
        fault = read->error;
    if (!fault.isEmpty())
        return {};
    QString text;
    QString further;
    for (const reporter::Section &section : read->document.sections) {
        const bool isFurther = section.page.titlePage;
        for (const reporter::MarginText margin : {reporter::Header, reporter::Footer})
            (isFurther ? further : text) += shownText(section.margins[margin]);
        if (isFurther) {
            for (const reporter::MarginText margin : {reporter::FirstHeader, reporter::FirstFooter})
                text += shownText(section.margins[margin]);
        }
        text += shownText(section.blocks);
    }
    return text + u'\f' + further;
}

} // namespace ledgora
