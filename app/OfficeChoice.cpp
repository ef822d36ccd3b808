#include "OfficeChoice.h"

#include "Descriptor.h"
#include "SharedServer.h"
#include "store/Settings.h"
#include <QDir>
#include <QSettings>
#include <fcntl.h>
#include <termios.h>

namespace ledgora::app {

namespace {

constexpr int tries = 3;

QString choiceFile(const QString &dataFolder)
{
    return joinPath(QDir(dataFolder).absolutePath(), QStringLiteral("server.ini"));
}

/// The shared server, reached with the password of the file or of the user.
std::unique_ptr<SharedServer> reachShared(const ServerChoice &choice, const AskPassword &ask, QString &fault)
{
    ServerAddress address;
    fault = readAddress(choice.address, address);
    QByteArray password;
    const bool asks = choice.passwordFile.isEmpty();
    if (fault.isEmpty() && !asks)
        password = passwordFrom(choice.passwordFile, fault);
    for (int round = 0; fault.isEmpty() && round < (asks ? tries : 1); ++round) {
        if (asks) {
            const auto typed = ask(address, round > 0);
            if (!typed) {
                fault = QStringLiteral("No password was given for the database server %1.").arg(address.host);
                break;
            }
            password = *typed;
        }
        auto server = std::make_unique<SharedServer>(address, password);
        if (server->start())
            return server;
        if (!server->wasRefused() || round + 1 == tries || !asks)
            fault = server->error();
    }
    return nullptr;
}

} // namespace

ServerChoice ServerChoice::saved(const QString &dataFolder)
{
    const QSettings file(choiceFile(dataFolder), QSettings::IniFormat);
    return {file.value(QStringLiteral("Server/Address")).toString(),
            file.value(QStringLiteral("Server/PasswordFile")).toString()};
}

bool ServerChoice::save(const QString &dataFolder) const
{
    QSettings file(choiceFile(dataFolder), QSettings::IniFormat);
    file.setValue(QStringLiteral("Server/Address"), address);
    file.setValue(QStringLiteral("Server/PasswordFile"), passwordFile);
    file.sync();
    return file.status() == QSettings::NoError;
}

std::optional<QByteArray> askOnTerminal(const ServerAddress &address, bool again)
{
    const Descriptor terminal(::open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY));
    termios shown = {};
    if (!terminal.isOpen() || ::tcgetattr(terminal.number(), &shown) != 0)
        return std::nullopt;
    const QByteArray question =
        (again ? QStringLiteral("Wrong. Password of %1 on %2: ") : QStringLiteral("Password of %1 on %2: "))
            .arg(address.user, address.host)
            .toUtf8();
    termios hidden = shown;
    hidden.c_lflag &= ~tcflag_t(ECHO);
    ::tcsetattr(terminal.number(), TCSAFLUSH, &hidden);
    QByteArray password;
    char sign = 0;
    bool whole = ::write(terminal.number(), question.constData(), size_t(question.size())) == question.size();
    while (whole && (whole = ::read(terminal.number(), &sign, 1) == 1) && sign != '\n')
        password += sign;
    ::tcsetattr(terminal.number(), TCSAFLUSH, &shown);
    whole = ::write(terminal.number(), "\n", 1) == 1 && whole;
    return whole ? std::optional(password) : std::nullopt;
}

QString tryShared(const ServerChoice &choice, const AskPassword &ask, QString &place)
{
    QString fault;
    if (const auto server = reachShared(choice, ask, fault))
        place = server->place();
    return fault;
}

std::unique_ptr<Office> openOffice(const QString &dataFolder, const QString &hostCode, const ServerChoice &choice,
                                   Folder folder, const AskPassword &ask, QString &fault)
{
    std::unique_ptr<OfficeServer> server;
    if (!choice.address.isEmpty()) {
        server = reachShared(choice, ask, fault);
        if (!server)
            return nullptr;
    } else if (folder == Folder::MustBeThere && !Office::exists(dataFolder)) {
        fault = QStringLiteral("The folder [") + dataFolder + QStringLiteral("] holds no office.");
        return nullptr;
    }
    auto office = std::make_unique<Office>(dataFolder, hostCode, std::move(server));
    if (office->open())
        return office;
    fault = office->error();
    return nullptr;
}

} // namespace ledgora::app
