#pragma once

#include <QString>

namespace ledgora {

/// The place that a failure is logged under while the object lives: name of the screen (or upper-case name of the
/// module) and upper-case name of the procedure. The innermost one counts.
class ErrorSite
{
public:
    ErrorSite(const char *object, const char *procedure);
    ErrorSite(const ErrorSite &) = delete;
    ErrorSite &operator=(const ErrorSite &) = delete;
    ~ErrorSite();

private:
    friend void WriteErrLog(qint64, const QString &, const QString &);
    const char *m_object;
    const char *m_procedure;
    const ErrorSite *m_outer;
};

/// Appends one line to `gLogPath`: date and time, number, description, source, object, procedure, TAB between them
/// (TAB and line breaks inside a field become blanks). Sets `gErrSite`. Nothing happens for number 0. Shows nothing
/// and never fails: a log that can not be written is given up silently.
void WriteErrLog(qint64 number, const QString &description, const QString &source);

} // namespace ledgora
