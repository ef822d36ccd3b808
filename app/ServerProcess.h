#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <sys/types.h>

namespace ledgora::app {

/// The server program: `wanted` as it is, else mariadbd from PATH, /usr/sbin or /usr/libexec; "" when there is none.
QString findServerProgram(const QString &wanted);

/// The statements that make a data folder: the server package's own system tables and first rows, and our database.
/// Empty when the package's files are not there.
QByteArray initialStatements(const QString &serverProgram);

/// A started child. It has a session of its own, so that a Ctrl+C in the program's terminal does not reach it.
class ServerProcess
{
public:
    /// `workingFolder` and the two descriptors belong to the caller, the child gets copies of them and no other.
    ServerProcess(const QString &program, const QStringList &arguments, int workingFolder, int input, int output);

    bool wasStarted() const { return m_process > 0; }
    int startError() const { return m_error; }
    bool hasEnded(); ///< and is reaped then
    bool succeeded() const { return m_ended && m_status == 0; }
    void terminate() const; ///< asks it to end

    /// Leaves a process of its own beside this server in the folder: when no program is left that holds `alive.lock`,
    /// since the last one was killed, it stops the server as that one would have done.
    void guard(int folder) const;

private:
    pid_t m_process = 0;
    int m_error = 0;
    int m_status = 0;
    bool m_ended = false;
};

} // namespace ledgora::app
