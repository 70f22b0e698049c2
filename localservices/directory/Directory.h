#pragma once

#include "DirectoryChannel.h"

#include <QList>
#include <QObject>

class Database;

/// The directory of channels in the database: those of partners, which everybody has who has not removed them, and
/// those that viewers have made, which everybody can find and add. Lives on one thread.
class Directory : public QObject
{
    Q_OBJECT

public:
    static constexpr int maximumChannels = 10'000;
    static constexpr int maximumOfViewer = 200; ///< Made by one, and added by one.
    static constexpr int pageSize = 20;         ///< Of what is found.

    /// The database is borrowed.
    explicit Directory(Database& database, QObject* parent = nullptr);

    /// All channels in the order of the directory: partners' ones first.
    QList<DirectoryChannel> all() const;

    /// Null when there is none.
    DirectoryChannel find(QString const& id) const;

    /// Adds a channel at the end, or changes the one of its id. Answers what stands against it, or nothing.
    QString put(DirectoryChannel channel);
    bool remove(QString const& id);

    /// When a channel was last changed, or removed, in seconds since the epoch. Two changes never have the same
    /// second, so that who has seen one is told of the other.
    qint64 lastChanged() const;

    /// Viewers' channels whose name or description has all these words; a page from 1 on, those that most have added
    /// in front. `total` is the number of all.
    QList<DirectoryChannel> search(QString const& words, int page, int& total) const;

    /// The channels that this account may see: partners' ones it has not removed, others it has made or added.
    QStringList idsFor(qint64 account) const;

    /// The channel that viewers begin with; empty when none was chosen.
    QString defaultChannel() const;
    QString setDefaultChannel(QString const& id);

    /// How many accounts have added a viewer's channel.
    int addersOf(QString const& id) const;

    /// Those of partners that the account has removed.
    QList<DirectoryChannel> removedBy(qint64 account) const;

    /// A viewer's channel is added to those of the account, or taken away. Answers what stands against it, or
    /// nothing.
    QString setAdded(qint64 account, QString const& id, bool isAdded);

    /// A partner's channel is removed for the account, or back.
    QString setRemoved(qint64 account, QString const& id, bool isRemoved);

signals:
    /// The channels of all have changed.
    void changed();

    /// Those of this account have.
    void changedFor(qint64 account);

private:
    QList<DirectoryChannel> read(QString const& condition, QVariantList const& values) const;
    bool touch();
    QString setting(char const* name) const;
    bool keep(char const* name, QString const& content);

    Database& _database;
};
