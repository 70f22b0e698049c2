#pragma once

#include "Broadcast.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <memory>

/// The broadcasts of this process, by name: a path such as "/live". Owns them.
class BroadcastCatalogue
{
public:
    /// Adds one; a name that is taken is replaced.
    void add(std::unique_ptr<Broadcast> broadcast);

    /// The broadcast that a client asked for, by path with or without its leading "/", percent-encoded or not, and
    /// with or without a query; null when there is none.
    Broadcast* find(QString const& path) const;

    QStringList names() const;
    QList<Broadcast*> all() const;

    /// Makes a stream secure: it opens with a token of this key only. With an empty key it is open to all again.
    void setKey(QString const& name, QByteArray const& key);
    void clearKeys() { _keys.clear(); }

    /// Whether a client that has asked by this path may have the broadcast: one that is secure wants a valid
    /// StreamToken in the path's query. The time is in seconds since the epoch.
    bool admits(Broadcast const& broadcast, QString const& path, qint64 now) const;

    /// A client's path as the name that a broadcast would have.
    static QString nameOf(QString const& path);

private:
    std::map<QString, std::unique_ptr<Broadcast>> _broadcasts;
    QMap<QString, QByteArray> _keys; ///< Of the secure ones, by name.
};
