#include "components/TemplateText.h"

#include "components/reporter/RtfReader.h"
#include <QFile>

namespace ledgora {

QString templateText(const QString &path, QString &fault)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        fault = file.errorString();
        return {};
    }
    const reporter::RtfRead read = reporter::readRtf(file.read(reporter::largestInput + 1));
    fault = read.error;
    QString text;
    if (fault.isEmpty())
        reporter::everyParagraph(read.document, [&text](const reporter::Paragraph &paragraph) {
            text += paragraph.text();
            text += u'\n';
        });
    return text;
}

} // namespace ledgora
