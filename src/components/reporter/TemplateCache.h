#pragma once

#include "components/reporter/Document.h"
#include <QDateTime>
#include <QHash>
#include <memory>

namespace ledgora::reporter {

/// Parsed templates by path. A file that changed in size or time of change is read again; so a template that was just
/// edited shows at once, and hundreds of bills from one template parse it once.
class TemplateCache
{
public:
    struct Template
    {
        Document document;
        QString error; ///< what was wrong in its text, or that nothing is in it; the document holds what could be read
    };

    /// The template, or nothing and a `fault` when the file can not be read.
    std::shared_ptr<const Template> load(const QString &path, QString &fault);

private:
    struct Entry
    {
        qint64 size = 0;
        QDateTime changed;
        std::shared_ptr<const Template> parsed;
    };
    QHash<QString, Entry> m_entries;
};

} // namespace ledgora::reporter
