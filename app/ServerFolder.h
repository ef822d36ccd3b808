#pragma once

#include "Descriptor.h"
#include <QString>
#include <chrono>

namespace ledgora::app {

/// Makes an office's folder DIR its owner's alone (mode 0700) where others may enter it. "" or why not: a folder with
/// files of other kinds, as a user's home, is left as it is and refused.
QString makePrivate(const QString &dataFolder);

/// The folder DIR/server of a private database server: who may enter it, its lock files, its log, its settings.
///
/// `start.lock` is held exclusively around check, initialising, starting and stopping, `users.lock` shared while a
/// program instance uses the server, `alive.lock` likewise, for the guard. The server itself holds a lock on
/// `server.log`, its standard output, for as long as it lives: the one sign of life that neither a kill nor a reused
/// process number falsifies. A function that returns a fault returns a text for the user, "" when all is well.
class ServerFolder
{
public:
    explicit ServerFolder(const QString &dataFolder);

    /// Makes DIR and DIR/server where they are missing, mode 0700, and opens DIR/server. One of another user, or a
    /// server folder that others may enter, is refused: the server asks no password.
    QString open();

    QString path(const QString &name) const;
    int descriptor() const { return m_folder.number(); }
    /// The socket as this process can name it to connect(2), which takes at most 107 bytes.
    QString socketAddress() const;

    enum class Lock { Shared, Exclusive };
    /// Opens the lock file and locks it; not open when another holds it beyond `limit`, or the file can not be made.
    Descriptor lock(const char *name, Lock kind, std::chrono::milliseconds limit) const;
    /// Turns a shared lock into an exclusive one if nobody else has it. The shared one is lost either way.
    static bool makeExclusive(const Descriptor &lock);

    bool isInitialised() const;   ///< the data was made whole once
    bool serverLives() const;     ///< a server, or its first initialising, runs on the folder
    qint64 serverProcess() const; ///< its process number, 0 when none runs
    /// A server runs and listens, and nobody can reach it, since its socket was removed from the folder.
    bool socketIsGone() const;

    /// The log, locked, for a new server's output; begins afresh when it has grown large.
    Descriptor openLog() const;
    /// What the log says last, from byte `from` on; "" when nothing.
    QString logTail(qint64 from) const;
    qint64 logSize() const;

    /// Writes the server's settings, readable and writable by the owner only: the server ignores a file that others
    /// may write.
    QString writeSettings(int lockWaitSeconds) const;
    static constexpr auto settingsFile = "server.cnf";

private:
    QString m_dataFolder;
    QString m_path;
    Descriptor m_folder;
};

} // namespace ledgora::app
