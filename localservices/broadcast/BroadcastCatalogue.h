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

    /// A client's path as the name that a broadcast would have.
    static QString nameOf(QString const& path);

private:
    std::map<QString, std::unique_ptr<Broadcast>> _broadcasts;
};
