#include "Accounts.h"

#include "Database.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QVariant>

namespace
{
constexpr qsizetype longestEmail = 254; // RFC 5321
constexpr qsizetype shortestPassword = 8;
constexpr qsizetype longestPassword = 256;
constexpr qsizetype longestName = 64;

QString keyOf(QString const& email)
{
    return email.trimmed().toLower();
}

Account accountOf(QSqlQuery const& query)
{
    return {query.value(0).toLongLong(), query.value(1).toString(), query.value(2).toString()};
}

QList<Account> accountsOf(QSqlQuery query)
{
    QList<Account> accounts;
    while (query.next())
        accounts.append(accountOf(query));
    return accounts;
}

QList<AccountGroup> groupsIn(QSqlQuery query)
{
    QList<AccountGroup> groups;
    while (query.next())
        groups.append({query.value(0).toLongLong(), query.value(1).toString(), query.value(2).toString(),
                       query.value(3).toString(), query.value(4).toString()});
    return groups;
}

QList<AccountRole> rolesIn(QSqlQuery query)
{
    QList<AccountRole> roles;
    while (query.next())
        roles.append({query.value(0).toLongLong(), query.value(1).toString(), query.value(2).toString(),
                      query.value(3).toString()});
    return roles;
}
} // namespace

Account Accounts::find(QString const& email) const
{
    return accountsOf(
               _database.run(QStringLiteral("SELECT id, email, name FROM accounts WHERE email = ?"), {keyOf(email)}))
        .value(0);
}

Account Accounts::find(qint64 id) const
{
    return accountsOf(_database.run(QStringLiteral("SELECT id, email, name FROM accounts WHERE id = ?"), {id}))
        .value(0);
}

PasswordHash Accounts::password(qint64 id) const
{
    QSqlQuery query = _database.run(QStringLiteral("SELECT salt, hash, iterations FROM accounts WHERE id = ?"), {id});
    if (!query.next())
        return {};
    return {QByteArray::fromHex(query.value(0).toByteArray()), QByteArray::fromHex(query.value(1).toByteArray()),
            query.value(2).toInt()};
}

QList<Account> Accounts::all() const
{
    return accountsOf(_database.run(QStringLiteral("SELECT id, email, name FROM accounts ORDER BY email LIMIT ?"),
                                    {maximumListed}));
}

QStringList Accounts::faultsOf(QString const& email, QString const& password)
{
    static QRegularExpression const form(QStringLiteral(R"(^[^\s@<>"\p{C}]+@[^\s@<>"\p{C}.]+(\.[^\s@<>"\p{C}.]+)+$)"),
                                         QRegularExpression::UseUnicodePropertiesOption);
    QStringList faults;
    if (email.size() > longestEmail || !form.match(email.trimmed()).hasMatch())
        faults.append(QStringLiteral("The e-mail address is not valid."));
    if (password.size() < shortestPassword)
        faults.append(QStringLiteral("The password needs at least %1 characters.").arg(shortestPassword));
    if (password.size() > longestPassword)
        faults.append(QStringLiteral("The password has more than %1 characters.").arg(longestPassword));
    return faults;
}

Account Accounts::add(QString const& email, PasswordHash const& password, bool isEmailAllowed, QString& error)
{
    Database::Transaction transaction(_database);
    if (!find(email).isNull())
        error = QStringLiteral("There is an account with this e-mail address.");
    else if (_database.value(QStringLiteral("SELECT COUNT(*) FROM accounts")).toInt() >= maximumAccounts)
        error = QStringLiteral("There are too many accounts.");
    if (!error.isEmpty())
        return {};
    QString const key = keyOf(email);
    _database.run(QStringLiteral("INSERT INTO accounts (email, name, salt, hash, iterations, email_allowed, created) "
                                 "VALUES (?, ?, ?, ?, ?, ?, ?)"),
                  {key, key.section('@', 0, 0).left(longestName), QString::fromLatin1(password.salt.toHex()),
                   QString::fromLatin1(password.hash.toHex()), password.iterations, isEmailAllowed ? 1 : 0,
                   QDateTime::currentSecsSinceEpoch()});
    Account const account = find(key);
    if (transaction.commit())
        return account;
    error = QStringLiteral("The account could not be stored.");
    return {};
}

bool Accounts::setPassword(qint64 id, PasswordHash const& password)
{
    Database::Transaction transaction(_database);
    _database.run(QStringLiteral("UPDATE accounts SET salt = ?, hash = ?, iterations = ? WHERE id = ?"),
                  {QString::fromLatin1(password.salt.toHex()), QString::fromLatin1(password.hash.toHex()),
                   password.iterations, id});
    return transaction.commit();
}

bool Accounts::setName(qint64 id, QString const& name)
{
    Database::Transaction transaction(_database);
    _database.run(QStringLiteral("UPDATE accounts SET name = ? WHERE id = ?"), {name.left(longestName), id});
    return transaction.commit();
}

bool Accounts::remove(qint64 id)
{
    Database::Transaction transaction(_database);
    _database.run(QStringLiteral("DELETE FROM accounts WHERE id = ?"), {id});
    return transaction.commit();
}

QList<AccountGroup> Accounts::groups() const
{
    return groupsIn(_database.run(
        QStringLiteral("SELECT id, name, description, abbr, variables FROM user_groups ORDER BY name LIMIT ?"),
        {maximumListed}));
}

QList<AccountGroup> Accounts::groupsOf(qint64 id) const
{
    return groupsIn(_database.run(
        QStringLiteral("SELECT g.id, g.name, g.description, g.abbr, g.variables FROM user_groups g "
                       "JOIN account_groups a ON a.group_id = g.id WHERE a.account_id = ? ORDER BY g.name LIMIT ?"),
        {id, maximumListed}));
}

QList<AccountRole> Accounts::roles() const
{
    return rolesIn(_database.run(
        QStringLiteral("SELECT id, title, abbr, variables FROM roles ORDER BY title LIMIT ?"), {maximumListed}));
}

QList<AccountRole> Accounts::rolesOf(qint64 id) const
{
    return rolesIn(_database.run(
        QStringLiteral("SELECT r.id, r.title, r.abbr, r.variables FROM roles r "
                       "JOIN account_roles a ON a.role_id = r.id WHERE a.account_id = ? ORDER BY r.title LIMIT ?"),
        {id, maximumListed}));
}

bool Accounts::setGroup(AccountGroup const& group)
{
    Database::Transaction transaction(_database);
    bool const isThere =
        _database.value(QStringLiteral("SELECT id FROM user_groups WHERE name = ?"), {group.name}).isValid();
    _database.run(
        isThere ? QStringLiteral("UPDATE user_groups SET description = ?, abbr = ?, variables = ? WHERE name = ?")
                : QStringLiteral("INSERT INTO user_groups (description, abbr, variables, name) "
                                 "VALUES (?, ?, ?, ?)"),
        {group.description, group.abbr, group.variables, group.name});
    return transaction.commit();
}

bool Accounts::setRole(AccountRole const& role)
{
    Database::Transaction transaction(_database);
    bool const isThere =
        _database.value(QStringLiteral("SELECT id FROM roles WHERE title = ?"), {role.title}).isValid();
    _database.run(isThere ? QStringLiteral("UPDATE roles SET abbr = ?, variables = ? WHERE title = ?")
                          : QStringLiteral("INSERT INTO roles (abbr, variables, title) VALUES (?, ?, ?)"),
                  {role.abbr, role.variables, role.title});
    return transaction.commit();
}

bool Accounts::removeGroup(QString const& name)
{
    return _database.run(QStringLiteral("DELETE FROM user_groups WHERE name = ?"), {name}).numRowsAffected() == 1;
}

bool Accounts::removeRole(QString const& title)
{
    return _database.run(QStringLiteral("DELETE FROM roles WHERE title = ?"), {title}).numRowsAffected() == 1;
}

bool Accounts::setMembership(QString const& table, QString const& column, qint64 id, qint64 other, bool isMember)
{
    Database::Transaction transaction(_database);
    _database.run(QStringLiteral("DELETE FROM %1 WHERE account_id = ? AND %2 = ?").arg(table, column), {id, other});
    if (isMember)
        _database.run(QStringLiteral("INSERT INTO %1 (account_id, %2) VALUES (?, ?)").arg(table, column),
                      {id, other});
    return transaction.commit();
}

bool Accounts::setMember(qint64 id, QString const& group, bool isMember)
{
    QVariant const other = _database.value(QStringLiteral("SELECT id FROM user_groups WHERE name = ?"), {group});
    return other.isValid() && setMembership(QStringLiteral("account_groups"), QStringLiteral("group_id"), id,
                                            other.toLongLong(), isMember);
}

bool Accounts::setInRole(qint64 id, QString const& title, bool isInRole)
{
    QVariant const other = _database.value(QStringLiteral("SELECT id FROM roles WHERE title = ?"), {title});
    return other.isValid() && setMembership(QStringLiteral("account_roles"), QStringLiteral("role_id"), id,
                                            other.toLongLong(), isInRole);
}

QList<Account> Accounts::withRole(QString const& title) const
{
    return accountsOf(_database.run(
        QStringLiteral("SELECT a.id, a.email, a.name FROM accounts a JOIN account_roles m ON m.account_id = a.id "
                       "JOIN roles r ON r.id = m.role_id WHERE r.title = ? ORDER BY a.name LIMIT ?"),
        {title, maximumListed}));
}

bool Accounts::rememberNode(QString const& node, qint64 id, qint64 now)
{
    if (node.isEmpty() || node.size() > maximumNodeLength)
        return false;
    Database::Transaction transaction(_database);
    bool const isThere = _database.value(QStringLiteral("SELECT node FROM nodes WHERE node = ?"), {node}).isValid();
    _database.run(isThere ? QStringLiteral("UPDATE nodes SET account_id = ?, last_seen = ? WHERE node = ?")
                          : QStringLiteral("INSERT INTO nodes (account_id, last_seen, node) VALUES (?, ?, ?)"),
                  {id, now, node});
    _database.run(QStringLiteral("DELETE FROM nodes WHERE account_id = ? AND node NOT IN (SELECT node FROM nodes "
                                 "WHERE account_id = ? ORDER BY last_seen DESC, node LIMIT ?)"),
                  {id, id, maximumNodes});
    return transaction.commit();
}

Account Accounts::ofNode(QString const& node) const
{
    return accountsOf(_database.run(QStringLiteral("SELECT a.id, a.email, a.name FROM accounts a "
                                                   "JOIN nodes n ON n.account_id = a.id WHERE n.node = ?"),
                                    {node}))
        .value(0);
}

QList<qint64> Accounts::lastSeen(int count) const
{
    QSqlQuery query = _database.run(QStringLiteral("SELECT account_id FROM nodes GROUP BY account_id "
                                                   "ORDER BY MAX(last_seen) DESC LIMIT ?"),
                                    {count});
    QList<qint64> ids;
    while (query.next())
        ids.append(query.value(0).toLongLong());
    return ids;
}
