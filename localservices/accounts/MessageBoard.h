#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class Database;

/// What viewers are told by the service, all or one of them; each machine that has signed in ("node") is told once.
class MessageBoard
{
public:
    static constexpr int maximumMessages = 1000;
    static constexpr qsizetype longest = 1024; ///< Characters.

    struct Message {
        qint64 id = 0;
        QString to; ///< An e-mail address; empty for all.
        QString text;
    };

    explicit MessageBoard(Database& database) : _database(database) {}

    QList<Message> all() const;

    /// For an account, or for all with 0. Answers what stands against it, or nothing.
    QString add(QString const& text, qint64 account);
    bool remove(qint64 id);

    /// What this node has not been told yet; then it has. Nothing for a node that has not signed in.
    QStringList take(QString const& node);

private:
    Database& _database;
};
