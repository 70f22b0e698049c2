#include "MessageBoard.h"

#include "Database.h"

#include <QDateTime>

QList<MessageBoard::Message> MessageBoard::all() const
{
    QSqlQuery query = _database.run(
        QStringLiteral("SELECT m.id, a.email, m.content FROM messages m LEFT JOIN accounts a ON a.id = m.account_id "
                       "ORDER BY m.id LIMIT ?"),
        {maximumMessages});
    QList<Message> messages;
    while (query.next())
        messages.append({query.value(0).toLongLong(), query.value(1).toString(), query.value(2).toString()});
    return messages;
}

QString MessageBoard::add(QString const& text, qint64 account)
{
    if (text.trimmed().isEmpty() || text.size() > longest)
        return QStringLiteral("a message has 1 to %1 characters").arg(longest);
    if (_database.value(QStringLiteral("SELECT COUNT(*) FROM messages")).toInt() >= maximumMessages)
        return QStringLiteral("there are %1 messages, which is enough").arg(maximumMessages);
    Database::Transaction transaction(_database);
    _database.run(QStringLiteral("INSERT INTO messages (account_id, content, created) VALUES (?, ?, ?)"),
                  {account != 0 ? QVariant(account) : QVariant(), text, QDateTime::currentSecsSinceEpoch()});
    return transaction.commit() ? QString() : QStringLiteral("the message could not be stored");
}

bool MessageBoard::remove(qint64 id)
{
    return _database.run(QStringLiteral("DELETE FROM messages WHERE id = ?"), {id}).numRowsAffected() == 1;
}

QStringList MessageBoard::take(QString const& node)
{
    Database::Transaction transaction(_database);
    QSqlQuery query =
        _database.run(QStringLiteral("SELECT m.id, m.content FROM messages m JOIN nodes n ON n.node = ? "
                                     "WHERE (m.account_id IS NULL OR m.account_id = n.account_id) AND m.id NOT IN "
                                     "(SELECT message_id FROM deliveries WHERE node = n.node) ORDER BY m.id LIMIT ?"),
                      {node, maximumMessages});
    QStringList texts;
    QList<qint64> ids;
    while (query.next()) {
        ids.append(query.value(0).toLongLong());
        texts.append(query.value(1).toString());
    }
    for (qint64 const id : ids)
        _database.run(QStringLiteral("INSERT INTO deliveries (message_id, node) VALUES (?, ?)"), {id, node});
    return transaction.commit() ? texts : QStringList();
}
