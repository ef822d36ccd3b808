#include "ServerRights.h"

#include <QRegularExpression>

namespace ledgora::app {

namespace {

/// Whether a database as grants name it, with _ and % as wildcards unless escaped, takes in the database.
bool covers(const QString &granted, const QString &database)
{
    QString pattern;
    for (qsizetype i = 0; i < granted.size(); ++i) {
        const QChar sign = granted.at(i);
        if (sign == u'\\' && i + 1 < granted.size())
            pattern += QRegularExpression::escape(granted.mid(++i, 1));
        else if (sign == u'%')
            pattern += QStringLiteral(".*");
        else if (sign == u'_')
            pattern += u'.';
        else
            pattern += QRegularExpression::escape(granted.mid(i, 1));
    }
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern), QRegularExpression::CaseInsensitiveOption)
        .match(database)
        .hasMatch();
}

} // namespace

QStringList missingRights(const QStringList &grants, const QString &database)
{
    static const QRegularExpression form(QStringLiteral("^GRANT (.+) ON (\\*|`(?:[^`]|``)+`)\\.\\* TO "));
    const QString reload = QStringLiteral("RELOAD");
    QStringList missing{
        QStringLiteral("SELECT"), QStringLiteral("INSERT"), QStringLiteral("UPDATE"),      QStringLiteral("DELETE"),
        QStringLiteral("CREATE"), QStringLiteral("DROP"),   QStringLiteral("LOCK TABLES"), reload};
    for (const QString &grant : grants) {
        const auto found = form.match(grant);
        if (!found.hasMatch())
            continue;
        QString on = found.captured(2);
        const bool everywhere = on == QLatin1String("*");
        on = on.mid(1, on.size() - 2).replace(QStringLiteral("``"), QStringLiteral("`"));
        if (!everywhere && !covers(on, database))
            continue;
        const QStringList rights = found.captured(1).split(QStringLiteral(", "));
        const bool all = rights.contains(QStringLiteral("ALL PRIVILEGES"));
        missing.removeIf([&](const QString &right) {
            return (all || rights.contains(right)) && (everywhere || right != reload); // RELOAD is the server's alone
        });
    }
    return missing;
}

} // namespace ledgora::app
