// Whatever the bytes are: reading ends, what was read can be written, read again and laid out, and from then on writing
// and reading change nothing more.

#include "components/reporter/Layout.h"
#include "components/reporter/RtfReader.h"
#include "components/reporter/RtfWriter.h"

#include <QGuiApplication>
#include <cstdlib>

using namespace ledgora::reporter;

namespace {

/// Layout is a thousand times slower than reading; a few paragraphs show its faults as well as many.
constexpr int mostLaidOut = 20;

void expect(bool holds, const char *what, const QByteArray &rtf)
{
    if (holds)
        return;
    qWarning("%s:\n%s", what, rtf.constData());
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *count, char ***arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(*count, *arguments);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const RtfRead first = readRtf({reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)});
    const QByteArray written = writeRtf(first.document);
    const RtfRead second = readRtf(written);
    expect(second.error.isEmpty(), "what is written has a fault", written);
    const QByteArray again = writeRtf(second.document);
    expect(readRtf(again).document == second.document, "writing changes the document", again);
    int paragraphs = 0;
    everyParagraph(first.document, [&paragraphs](const Paragraph &) { ++paragraphs; });
    if (paragraphs <= mostLaidOut)
        expect(!layoutDocument(first.document).empty(), "there is no page", written);
    return 0;
}
