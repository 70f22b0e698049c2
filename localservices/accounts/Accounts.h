#pragma once

#include "Account.h"
#include "PasswordHash.h"

#include <QList>
#include <QStringList>

class Database;

/// The accounts in the database, their groups and roles, and the machines that they sign in from ("nodes", under
/// which a viewer's program asks for what is the viewer's).
class Accounts
{
public:
    static constexpr int maximumAccounts = 100'000;
    static constexpr int maximumNodes = 20;       ///< Of an account; the one that was seen first goes.
    static constexpr int maximumNodeLength = 128; ///< Characters.
    static constexpr int maximumListed = 1000;

    explicit Accounts(Database& database) : _database(database) {}

    /// Null when there is none of that address, whose case does not matter.
    Account find(QString const& email) const;
    Account find(qint64 id) const;
    PasswordHash password(qint64 id) const;

    /// The first ones by address.
    QList<Account> all() const;

    /// Answers what stands against a new account, or nothing.
    static QStringList faultsOf(QString const& email, QString const& password);

    /// A new account, named after its address. Null, and a text that tells why, when there is one or too many.
    Account add(QString const& email, PasswordHash const& password, bool isEmailAllowed, QString& error);
    bool setPassword(qint64 id, PasswordHash const& password);
    bool setName(qint64 id, QString const& name);
    bool remove(qint64 id);

    QList<AccountGroup> groups() const;
    QList<AccountGroup> groupsOf(qint64 id) const;
    QList<AccountRole> roles() const;
    QList<AccountRole> rolesOf(qint64 id) const;

    /// Makes a group or role, or changes the one of that name.
    bool setGroup(AccountGroup const& group);
    bool setRole(AccountRole const& role);
    bool removeGroup(QString const& name);
    bool removeRole(QString const& title);

    /// Puts an account into the group or role of this name, or takes it out. False when there is none.
    bool setMember(qint64 id, QString const& group, bool isMember);
    bool setInRole(qint64 id, QString const& title, bool isInRole);

    /// Those with a role.
    QList<Account> withRole(QString const& title) const;

    /// The account has signed in from there; the node is now this account's. The time is in seconds since the epoch.
    bool rememberNode(QString const& node, qint64 id, qint64 now);

    /// Who has last signed in from there; null when nobody has.
    Account ofNode(QString const& node) const;

    /// The accounts that have signed in, those that did last in front.
    QList<qint64> lastSeen(int count) const;

private:
    bool setMembership(QString const& table, QString const& column, qint64 id, qint64 other, bool isMember);

    Database& _database;
};
