#pragma once

#include <QByteArray>
#include <QString>
#include <qpdf/qpdf-c.h>
#include <vector>

namespace ledgora::reporter {

/// A PDF file that is taken apart or put together in memory; after any fault all further steps do nothing, and there is
/// no result.
class PdfFile
{
public:
    /// One without pages.
    PdfFile() : PdfFile(Nothing{}) { qpdf_empty_pdf(m_file); }
    /// Reads the file; the bytes must live as long.
    explicit PdfFile(const QByteArray &pdf) : PdfFile(Nothing{})
    {
        qpdf_read_memory(m_file, "document", pdf.constData(), static_cast<unsigned long long>(pdf.size()), nullptr);
    }
    PdfFile(const PdfFile &) = delete;
    PdfFile &operator=(const PdfFile &) = delete;
    ~PdfFile() { qpdf_cleanup(&m_file); }

    bool failed() const { return qpdf_has_error(m_file) != QPDF_FALSE; }
    int pages() const { return failed() ? 0 : qpdf_get_num_pages(m_file); }
    qpdf_data handle() const { return m_file; }

    /// Appends pages of another file, which must live until this one was made whole, with what they use and nothing
    /// else.
    void takePages(const PdfFile &from, int first, int count)
    {
        for (int page = first; page < first + count && !failed() && !from.failed(); ++page)
            qpdf_add_page(m_file, from.m_file, qpdf_get_page_n(from.m_file, static_cast<std::size_t>(page)),
                          QPDF_FALSE);
        qpdf_oh_release_all(from.m_file);
    }

    void setInfo(const char *key, const QString &value)
    {
        const qpdf_oh trailer = qpdf_get_trailer(m_file);
        if (qpdf_oh_has_key(m_file, trailer, "/Info") == QPDF_FALSE)
            qpdf_oh_replace_key(m_file, trailer, "/Info",
                                qpdf_make_indirect_object(m_file, qpdf_oh_new_dictionary(m_file)));
        qpdf_oh_replace_key(m_file, qpdf_oh_get_key(m_file, trailer, "/Info"), key,
                            qpdf_oh_new_unicode_string(m_file, value.toUtf8().constData()));
    }

    QByteArray whole()
    {
        if (failed() || qpdf_init_write_memory(m_file) != QPDF_SUCCESS || qpdf_write(m_file) != QPDF_SUCCESS)
            return {};
        return {reinterpret_cast<const char *>(qpdf_get_buffer(m_file)),
                static_cast<qsizetype>(qpdf_get_buffer_length(m_file))};
    }

private:
    struct Nothing
    {
    };
    explicit PdfFile(Nothing) : m_file(qpdf_init())
    {
        qpdf_silence_errors(m_file);
        qpdf_set_suppress_warnings(m_file, QPDF_TRUE);
    }

    qpdf_data m_file;
};

} // namespace ledgora::reporter
