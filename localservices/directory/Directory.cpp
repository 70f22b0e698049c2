#include "Directory.h"

#include "Database.h"

#include <QDateTime>
#include <QHash>

#include <algorithm>

namespace
{
char const* const changedSetting = "directory_changed";
char const* const defaultSetting = "directory_default";
constexpr qsizetype maximumWords = 8;

/// What is searched through, beside the fields: SQL knows the lower case of few letters.
char const* const searchText = "search_text";

/// For LIKE, whose own signs are taken for letters.
QString patternOf(QString word)
{
    word.replace('!', "!!").replace('%', "!%").replace('_', "!_");
    return '%' + word + '%';
}
} // namespace

Directory::Directory(Database& database, QObject* parent) : QObject(parent), _database(database) {}

/// Three statements for all of them, not three for each.
QList<DirectoryChannel> Directory::read(QString const& condition, QVariantList const& values) const
{
    QList<DirectoryChannel> channels;
    QHash<QString, qsizetype> places;
    QSqlQuery query = _database.run("SELECT c.id, c.owner_id FROM channels c " + condition, values);
    while (query.next()) {
        DirectoryChannel channel;
        channel.id = query.value(0).toString();
        channel.owner = query.value(1).toLongLong();
        places.insert(channel.id, channels.size());
        channels.append(channel);
    }
    QString const those = QStringLiteral("WHERE channel_id IN (SELECT c.id FROM channels c %1)").arg(condition);
    query = _database.run("SELECT channel_id, field, content FROM channel_fields " + those + " AND field <> ?",
                          values + QVariantList{QString::fromLatin1(searchText)});
    while (query.next())
        channels[places.value(query.value(0).toString())].fields.insert(query.value(1).toString(),
                                                                        query.value(2).toString());
    query = _database.run("SELECT channel_id, uri FROM channel_streams " + those + " ORDER BY channel_id, position",
                          values);
    while (query.next())
        channels[places.value(query.value(0).toString())].uris.append(query.value(1).toString());
    return channels;
}

QList<DirectoryChannel> Directory::all() const
{
    return read(QStringLiteral("ORDER BY CASE WHEN c.owner_id IS NULL THEN 0 ELSE 1 END, c.position, c.id LIMIT ?"),
                {maximumChannels});
}

DirectoryChannel Directory::find(QString const& id) const
{
    return read(QStringLiteral("WHERE c.id = ?"), {id}).value(0);
}

QString Directory::put(DirectoryChannel channel)
{
    if (QString const why = channel.fault(); !why.isEmpty())
        return why;
    Database::Transaction transaction(_database);
    QVariant const place =
        _database.value(QStringLiteral("SELECT position FROM channels WHERE id = ?"), {channel.id});
    if (!place.isValid()) {
        if (_database.value(QStringLiteral("SELECT COUNT(*) FROM channels")).toInt() >= maximumChannels)
            return QStringLiteral("there are too many channels");
        if (channel.owner != 0 &&
            _database.value(QStringLiteral("SELECT COUNT(*) FROM channels WHERE owner_id = ?"), {channel.owner})
                    .toInt() >= maximumOfViewer)
            return QStringLiteral("a viewer can make %1 channels").arg(maximumOfViewer);
        int const last = _database.value(QStringLiteral("SELECT MAX(position) FROM channels")).toInt();
        _database.run(QStringLiteral("INSERT INTO channels (id, position, owner_id) VALUES (?, ?, ?)"),
                      {channel.id, last + 1, channel.owner != 0 ? QVariant(channel.owner) : QVariant()});
    }
    _database.run(QStringLiteral("DELETE FROM channel_fields WHERE channel_id = ?"), {channel.id});
    for (auto each = channel.fields.begin(); each != channel.fields.end(); ++each)
        _database.run(QStringLiteral("INSERT INTO channel_fields (channel_id, field, content) VALUES (?, ?, ?)"),
                      {channel.id, each.key(), each.value()});
    _database.run(QStringLiteral("INSERT INTO channel_fields (channel_id, field, content) VALUES (?, ?, ?)"),
                  {channel.id, QString::fromLatin1(searchText),
                   QString(channel.field("name") + ' ' + channel.field("description")).toLower()});
    _database.run(QStringLiteral("DELETE FROM channel_streams WHERE channel_id = ?"), {channel.id});
    for (qsizetype i = 0; i < channel.uris.size(); ++i)
        _database.run(QStringLiteral("INSERT INTO channel_streams (channel_id, position, uri) VALUES (?, ?, ?)"),
                      {channel.id, i, channel.uris.at(i)});
    if (!touch() || !transaction.commit())
        return QStringLiteral("the channel could not be stored");
    emit changed();
    return {};
}

bool Directory::remove(QString const& id)
{
    Database::Transaction transaction(_database);
    bool const isThere =
        _database.run(QStringLiteral("DELETE FROM channels WHERE id = ?"), {id}).numRowsAffected() == 1;
    if (!isThere || !touch() || !transaction.commit())
        return false;
    emit changed();
    return true;
}

qint64 Directory::lastChanged() const
{
    return setting(changedSetting).toLongLong();
}

bool Directory::touch()
{
    qint64 const now = std::max(QDateTime::currentSecsSinceEpoch(), lastChanged() + 1);
    return keep(changedSetting, QString::number(now));
}

QString Directory::defaultChannel() const
{
    return setting(defaultSetting);
}

QString Directory::setDefaultChannel(QString const& id)
{
    if (find(id).isNull())
        return QStringLiteral("there is no channel \"%1\"").arg(id);
    Database::Transaction transaction(_database);
    keep(defaultSetting, id);
    if (!transaction.commit())
        return QStringLiteral("it could not be stored");
    emit changed();
    return {};
}

QString Directory::setting(char const* name) const
{
    return _database.value(QStringLiteral("SELECT content FROM settings WHERE name = ?"), {QString::fromLatin1(name)})
        .toString();
}

bool Directory::keep(char const* name, QString const& content)
{
    _database.run(QStringLiteral("DELETE FROM settings WHERE name = ?"), {QString::fromLatin1(name)});
    _database.run(QStringLiteral("INSERT INTO settings (name, content) VALUES (?, ?)"),
                  {QString::fromLatin1(name), content});
    return _database.isOk();
}

int Directory::addersOf(QString const& id) const
{
    return _database.value(QStringLiteral("SELECT COUNT(*) FROM added_channels WHERE channel_id = ?"), {id}).toInt();
}

QList<DirectoryChannel> Directory::search(QString const& words, int page, int& total) const
{
    QString condition = QStringLiteral("WHERE c.owner_id IS NOT NULL");
    QVariantList values;
    for (QString const& word : words.toLower().split(' ', Qt::SkipEmptyParts).mid(0, maximumWords)) {
        condition += QStringLiteral(" AND c.id IN (SELECT f.channel_id FROM channel_fields f WHERE f.field = ? "
                                    "AND f.content LIKE ? ESCAPE '!')");
        values << QString::fromLatin1(searchText) << patternOf(word);
    }
    total = _database.value("SELECT COUNT(*) FROM channels c " + condition, values).toInt();
    condition +=
        QStringLiteral(" ORDER BY (SELECT COUNT(*) FROM added_channels a WHERE a.channel_id = c.id) DESC, c.id "
                       "LIMIT ? OFFSET ?");
    values << pageSize << (std::clamp(page, 1, maximumChannels) - 1) * pageSize;
    return read(condition, values);
}

QStringList Directory::idsFor(qint64 account) const
{
    QSqlQuery query = _database.run(
        QStringLiteral(
            "SELECT c.id FROM channels c WHERE (c.owner_id IS NULL AND c.id NOT IN "
            "(SELECT channel_id FROM removed_channels WHERE account_id = ?)) OR c.id IN "
            "(SELECT channel_id FROM added_channels WHERE account_id = ?) ORDER BY c.position, c.id LIMIT ?"),
        {account, account, maximumChannels});
    QStringList ids;
    while (query.next())
        ids.append(query.value(0).toString());
    return ids;
}

QList<DirectoryChannel> Directory::removedBy(qint64 account) const
{
    return read(QStringLiteral("WHERE c.owner_id IS NULL AND c.id IN (SELECT channel_id FROM removed_channels "
                               "WHERE account_id = ?) ORDER BY c.position LIMIT ?"),
                {account, maximumChannels});
}

QString Directory::setAdded(qint64 account, QString const& id, bool isAdded)
{
    if (find(id).owner == 0)
        return QStringLiteral("There is no such channel of a viewer.");
    Database::Transaction transaction(_database);
    _database.run(QStringLiteral("DELETE FROM added_channels WHERE account_id = ? AND channel_id = ?"),
                  {account, id});
    if (isAdded) {
        if (_database.value(QStringLiteral("SELECT COUNT(*) FROM added_channels WHERE account_id = ?"), {account})
                .toInt() >= maximumOfViewer)
            return QStringLiteral("You have as many channels as a viewer can have.");
        _database.run(QStringLiteral("INSERT INTO added_channels (account_id, channel_id) VALUES (?, ?)"),
                      {account, id});
    }
    if (!transaction.commit())
        return QStringLiteral("The service cannot store this now.");
    emit changedFor(account);
    return {};
}

QString Directory::setRemoved(qint64 account, QString const& id, bool isRemoved)
{
    DirectoryChannel const channel = find(id);
    if (channel.isNull() || channel.owner != 0)
        return QStringLiteral("There is no such channel of a partner.");
    Database::Transaction transaction(_database);
    _database.run(QStringLiteral("DELETE FROM removed_channels WHERE account_id = ? AND channel_id = ?"),
                  {account, id});
    if (isRemoved)
        _database.run(QStringLiteral("INSERT INTO removed_channels (account_id, channel_id) VALUES (?, ?)"),
                      {account, id});
    if (!transaction.commit())
        return QStringLiteral("The service cannot store this now.");
    emit changedFor(account);
    return {};
}
