#include "DatabaseSchema.h"

#include "Database.h"

#include <QStringList>

#include <array>

namespace
{
/// Accounts, with groups and roles; the machines ("nodes") that they have signed in from.
constexpr char const* accountTables = R"(
CREATE TABLE accounts (
    id INTEGER PRIMARY KEY, email VARCHAR(254) NOT NULL UNIQUE, name VARCHAR(64) NOT NULL,
    salt VARCHAR(64) NOT NULL, hash VARCHAR(128) NOT NULL, iterations INTEGER NOT NULL,
    email_allowed INTEGER NOT NULL, created BIGINT NOT NULL);
CREATE TABLE user_groups (
    id INTEGER PRIMARY KEY, name VARCHAR(64) NOT NULL UNIQUE, description VARCHAR(512) NOT NULL,
    abbr VARCHAR(16) NOT NULL, variables VARCHAR(1024) NOT NULL);
CREATE TABLE account_groups (
    account_id INTEGER NOT NULL REFERENCES accounts(id) ON DELETE CASCADE,
    group_id INTEGER NOT NULL REFERENCES user_groups(id) ON DELETE CASCADE, PRIMARY KEY (account_id, group_id));
CREATE TABLE roles (
    id INTEGER PRIMARY KEY, title VARCHAR(64) NOT NULL UNIQUE, abbr VARCHAR(16) NOT NULL,
    variables VARCHAR(1024) NOT NULL);
CREATE TABLE account_roles (
    account_id INTEGER NOT NULL REFERENCES accounts(id) ON DELETE CASCADE,
    role_id INTEGER NOT NULL REFERENCES roles(id) ON DELETE CASCADE, PRIMARY KEY (account_id, role_id));
CREATE TABLE nodes (
    node VARCHAR(128) PRIMARY KEY,
    account_id INTEGER NOT NULL REFERENCES accounts(id) ON DELETE CASCADE, last_seen BIGINT NOT NULL);
CREATE INDEX nodes_of_account ON nodes (account_id, last_seen))";

/// The directory: partners' channels, and those that viewers have made (owner_id); what each viewer has added or
/// removed.
constexpr char const* channelTables = R"(
CREATE TABLE channels (
    id VARCHAR(64) PRIMARY KEY, position INTEGER NOT NULL,
    owner_id INTEGER REFERENCES accounts(id) ON DELETE CASCADE);
CREATE TABLE channel_fields (
    channel_id VARCHAR(64) NOT NULL REFERENCES channels(id) ON DELETE CASCADE, field VARCHAR(32) NOT NULL,
    content VARCHAR(8192) NOT NULL, PRIMARY KEY (channel_id, field));
CREATE TABLE channel_streams (
    channel_id VARCHAR(64) NOT NULL REFERENCES channels(id) ON DELETE CASCADE, position INTEGER NOT NULL,
    uri VARCHAR(2048) NOT NULL, PRIMARY KEY (channel_id, position));
CREATE TABLE added_channels (
    account_id INTEGER NOT NULL REFERENCES accounts(id) ON DELETE CASCADE,
    channel_id VARCHAR(64) NOT NULL REFERENCES channels(id) ON DELETE CASCADE, PRIMARY KEY (account_id, channel_id));
CREATE INDEX adders_of_channel ON added_channels (channel_id);
CREATE TABLE removed_channels (
    account_id INTEGER NOT NULL REFERENCES accounts(id) ON DELETE CASCADE,
    channel_id VARCHAR(64) NOT NULL REFERENCES channels(id) ON DELETE CASCADE, PRIMARY KEY (account_id, channel_id)))";

/// What viewers are told, once on each machine, and what the service is set to.
constexpr char const* messageTables = R"(
CREATE TABLE messages (
    id INTEGER PRIMARY KEY, account_id INTEGER REFERENCES accounts(id) ON DELETE CASCADE,
    content VARCHAR(1024) NOT NULL, created BIGINT NOT NULL);
CREATE TABLE deliveries (
    message_id INTEGER NOT NULL REFERENCES messages(id) ON DELETE CASCADE,
    node VARCHAR(128) NOT NULL REFERENCES nodes(node) ON DELETE CASCADE, PRIMARY KEY (message_id, node));
CREATE TABLE settings (name VARCHAR(64) PRIMARY KEY, content VARCHAR(2048) NOT NULL))";

constexpr std::array steps = {accountTables, channelTables, messageTables};

bool take(Database& database, size_t step)
{
    Database::Transaction transaction(database);
    for (QString const& statement : QString::fromLatin1(steps[step]).split(';'))
        database.run(statement.trimmed());
    database.run(QStringLiteral("UPDATE schema_version SET version = ?"), {static_cast<int>(step) + 1});
    return transaction.commit();
}
} // namespace

bool DatabaseSchema::update(Database& database, QString& error)
{
    {
        Database::Transaction transaction(database);
        database.run(QStringLiteral("CREATE TABLE IF NOT EXISTS schema_version (version INTEGER NOT NULL)"));
        if (!database.value(QStringLiteral("SELECT version FROM schema_version")).isValid())
            database.run(QStringLiteral("INSERT INTO schema_version (version) VALUES (0)"));
        if (!transaction.commit()) {
            error = QStringLiteral("it is no database, or cannot be written");
            return false;
        }
    }
    auto const version = database.value(QStringLiteral("SELECT version FROM schema_version")).toUInt();
    if (version > steps.size()) {
        error = QStringLiteral("it is of version %1, and only %2 is known here").arg(version).arg(steps.size());
        return false;
    }
    for (size_t step = version; step < steps.size(); ++step) {
        if (!take(database, step)) {
            error = QStringLiteral("it cannot be brought to version %1").arg(step + 1);
            return false;
        }
    }
    return true;
}
