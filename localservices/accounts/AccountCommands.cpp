#include "AccountCommands.h"

#include "Accounts.h"
#include "MessageBoard.h"
#include "SignInSettings.h"

namespace
{
QString stored(bool isStored)
{
    return isStored ? QString() : QStringLiteral("there is none of that name, or it could not be stored");
}
} // namespace

QStringList AccountCommands::help()
{
    return {
        QStringLiteral("account list             accounts, groups and roles"),
        QStringLiteral("account add EMAIL PASSWORD"),
        QStringLiteral("account password EMAIL PASSWORD"),
        QStringLiteral("account name EMAIL NAME  what others see of it"),
        QStringLiteral("account remove EMAIL"),
        QStringLiteral("account join|leave EMAIL GROUP"),
        QStringLiteral("account grant|revoke EMAIL ROLE"),
        QStringLiteral("account group NAME | DESCRIPTION | ABBREVIATION | VARIABLES"),
        QStringLiteral("account role TITLE | ABBREVIATION | VARIABLES"),
        QStringLiteral("                         makes a group or a role, or changes the one of that name"),
        QStringLiteral("account ungroup NAME, account unrole TITLE"),
        QStringLiteral("message list             what viewers are told"),
        QStringLiteral("message add TEXT         tells all viewers, each machine once"),
        QStringLiteral("message to EMAIL TEXT    tells one"),
        QStringLiteral("message remove NUMBER"),
        QStringLiteral("signin list              what programs are told at sign-in, such as update_version"),
        QStringLiteral("signin set NAME [CONTENT]"),
    };
}

QString AccountCommands::withoutSecrets(QString const& line)
{
    QStringList words = line.split(' ', Qt::SkipEmptyParts);
    bool const hasPassword = words.value(0) == "account" && (words.value(1) == "add" || words.value(1) == "password");
    bool const hasKey = (words.value(0) == "channel" || words.value(0) == "stream") && words.value(3) == "key";
    qsizetype const open = hasPassword ? 3 : 4;
    return (hasPassword || hasKey) && words.size() > open ? words.mid(0, open).join(' ') + " ..." : line;
}

QString AccountCommands::account(QStringList const& words, QStringList& lines)
{
    QString const what = words.value(0);
    if (what == "list")
        return list(lines), QString();
    if (what == "add")
        return addAccount(words);
    if (what == "group" || what == "role" || what == "ungroup" || what == "unrole")
        return define(what, words.mid(1).join(' '));
    Account const account = _parts.accounts.find(words.value(1));
    if (words.size() < 2 || account.isNull())
        return QStringLiteral("\"account %1 %2\": there is no such command, or no such account")
            .arg(what, words.value(1));
    QString const error = change(what, account.id, words.mid(2).join(' '));
    if (error.isEmpty())
        _parts.trigger(account.id);
    return error;
}

QString AccountCommands::addAccount(QStringList const& words)
{
    QString const email = words.value(1);
    QString const password = words.mid(2).join(' ');
    QStringList const faults = Accounts::faultsOf(email, password);
    if (!faults.isEmpty())
        return faults.join(' ');
    QString error;
    _parts.accounts.add(email, PasswordHash::make(password, _parts.iterations), false, error);
    return error;
}

QString AccountCommands::change(QString const& what, qint64 id, QString const& rest)
{
    Accounts& accounts = _parts.accounts;
    if (what == "remove")
        return stored(accounts.remove(id));
    if (rest.isEmpty())
        return QStringLiteral("\"account %1 EMAIL\" needs something more; \"help\" lists it").arg(what);
    if (what == "password") {
        QStringList const faults = Accounts::faultsOf(accounts.find(id).email, rest);
        return faults.isEmpty() ? stored(accounts.setPassword(id, PasswordHash::make(rest, _parts.iterations)))
                                : faults.join(' ');
    }
    if (what == "name")
        return stored(accounts.setName(id, rest));
    if (what == "join" || what == "leave")
        return stored(accounts.setMember(id, rest, what == "join"));
    if (what == "grant" || what == "revoke")
        return stored(accounts.setInRole(id, rest, what == "grant"));
    return QStringLiteral("\"account %1\" is no command; \"help\" lists them").arg(what);
}

QString AccountCommands::define(QString const& what, QString const& rest)
{
    QStringList parts = rest.split('|');
    for (QString& part : parts)
        part = part.trimmed();
    if (parts.first().isEmpty() || rest.size() > 1024)
        return QStringLiteral("\"account %1\": a name is needed, and not more than 1024 characters in all").arg(what);
    if (what == "group")
        return stored(_parts.accounts.setGroup({0, parts.value(0), parts.value(1), parts.value(2), parts.value(3)}));
    if (what == "role")
        return stored(_parts.accounts.setRole({0, parts.value(0), parts.value(1), parts.value(2)}));
    return stored(what == "ungroup" ? _parts.accounts.removeGroup(rest) : _parts.accounts.removeRole(rest));
}

void AccountCommands::list(QStringList& lines) const
{
    for (Account const& account : _parts.accounts.all()) {
        QStringList belongings;
        for (AccountGroup const& group : _parts.accounts.groupsOf(account.id))
            belongings.append(group.name);
        for (AccountRole const& role : _parts.accounts.rolesOf(account.id))
            belongings.append(role.title);
        lines.append(QStringLiteral("%1 %2 (%3): %4%5")
                         .arg(account.id)
                         .arg(account.email, account.name, belongings.join(QStringLiteral(", ")),
                              _parts.accounts.password(account.id).hash.isEmpty()
                                  ? QStringLiteral("; without a password")
                                  : QString()));
    }
    for (AccountGroup const& group : _parts.accounts.groups())
        lines.append(QStringLiteral("group %1 | %2 | %3 | %4")
                         .arg(group.name, group.description, group.abbr, group.variables));
    for (AccountRole const& role : _parts.accounts.roles())
        lines.append(QStringLiteral("role %1 | %2 | %3").arg(role.title, role.abbr, role.variables));
}

QString AccountCommands::message(QStringList const& words, QStringList& lines)
{
    QString const what = words.value(0);
    qint64 account = 0;
    if (what == "list") {
        for (MessageBoard::Message const& message : _parts.messages.all())
            lines.append(QStringLiteral("%1 %2: %3")
                             .arg(message.id)
                             .arg(message.to.isEmpty() ? QStringLiteral("all") : message.to, message.text));
        return {};
    }
    if (what == "remove")
        return stored(_parts.messages.remove(words.value(1).toLongLong()));
    if (what == "to")
        account = _parts.accounts.find(words.value(1)).id;
    if (what == "to" && account == 0)
        return QStringLiteral("there is no account %1").arg(words.value(1));
    if (what != "add" && what != "to")
        return QStringLiteral("\"message %1\": there are list, add, to and remove").arg(what);
    QString const error = _parts.messages.add(words.mid(what == "to" ? 2 : 1).join(' '), account);
    if (error.isEmpty())
        _parts.trigger(account);
    return error;
}

QString AccountCommands::signIn(QStringList const& words, QStringList& lines)
{
    if (words.value(0) == "set")
        return _parts.settings.set(words.value(1), words.mid(2).join(' '));
    if (words.value(0) != "list")
        return QStringLiteral("\"signin %1\": there are list and set").arg(words.value(0));
    for (SignInSettings::Setting const& setting : SignInSettings::all())
        lines.append(QString::fromLatin1(setting.name) + ' ' +
                     _parts.settings.value(QString::fromLatin1(setting.name)));
    return {};
}
