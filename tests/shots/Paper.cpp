// A word processor's file as our engine lays it out, for looking at it beside another program's pages.

#include "components/reporter/Layout.h"
#include "components/reporter/PdfOutput.h"
#include "components/reporter/RtfReader.h"
#include <QFile>
#include <QGuiApplication>
#include <cstdio>

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    const QStringList words = QGuiApplication::arguments();
    QFile file(words.value(1));
    if (words.size() != 3 || !file.open(QIODevice::ReadOnly)) {
        std::fputs("usage: ledgora_paper FILE.rtf OUT.pdf\n", stderr);
        return 2;
    }
    const auto read = ledgora::reporter::readRtf(file.readAll());
    const QString fault = ledgora::reporter::writePdf(ledgora::reporter::layoutDocument(read.document), words.at(2),
                                                      QStringLiteral("paper"));
    if (!read.error.isEmpty() || !fault.isEmpty())
        std::fprintf(stderr, "ledgora_paper: %s%s\n", qPrintable(read.error), qPrintable(fault));
    return fault.isEmpty() ? 0 : 1;
}
