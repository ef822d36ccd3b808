#pragma once

#include "components/reporter/Document.h"
#include "platform/Reporter.h"
#include <QStringView>

namespace ledgora::reporter {

/// Fills the placeholders of a document. Begins with a clone of the parsed template and knows, from then on, which of
/// its paragraphs can hold a placeholder at all, so that a replacement looks at few of them.
///
/// A placeholder may be spread over runs (word processors split them at will); the value takes the format of the run
/// in which the placeholder begins. CR LF, LF or CR in a value breaks the line, ESC E switches bold on and ESC F off
/// again; other control characters are dropped. A value is text and never markup: braces and back-slashes stand as they
/// are. What a replacement has inserted is searched by later replacements but not by itself.
///
/// A paragraph with the hidden text "[optional]" loses all of its text when its placeholders all came out empty, so
/// that no label stands without its value. Any word processor can hide text, and keeps it.
class Filling
{
public:
    explicit Filling(Document document);
    Filling(const Filling &) = delete;
    Filling &operator=(const Filling &) = delete;

    /// Replaces all occurrences and tells how many there were. An empty placeholder occurs nowhere.
    int setText(const QString &placeholder, const PlaceholderValue &value);

    const Document &document() const { return m_document; }

private:
    /// A paragraph that holds a "#", and its text, which its runs would have to be joined for.
    struct Open
    {
        Paragraph *paragraph;
        QString text;
        bool optional;       ///< goes when all its values are empty
        bool filled = false; ///< by a value that is not empty
    };
    void closeFilled();

    Document m_document;
    std::vector<Open> m_open; ///< in reading order
};

/// A value as the text that goes into a run, marks of bold text included.
QString valueText(const PlaceholderValue &value);

/// Replaces all occurrences of `placeholder` in one paragraph; runs that lose all their text go.
int replaceInParagraph(Paragraph &paragraph, const QString &placeholder, const QString &text);

} // namespace ledgora::reporter
