#include "BroadcastCatalogue.h"

#include <QUrl>

void BroadcastCatalogue::add(std::unique_ptr<Broadcast> broadcast)
{
    QString const name = broadcast->name();
    _broadcasts[name] = std::move(broadcast);
}

Broadcast* BroadcastCatalogue::find(QString const& path) const
{
    auto const found = _broadcasts.find(nameOf(path));
    return found == _broadcasts.end() ? nullptr : found->second.get();
}

QStringList BroadcastCatalogue::names() const
{
    QStringList names;
    for (auto const& [name, broadcast] : _broadcasts)
        names.append(name);
    return names;
}

QList<Broadcast*> BroadcastCatalogue::all() const
{
    QList<Broadcast*> all;
    for (auto const& [name, broadcast] : _broadcasts)
        all.append(broadcast.get());
    return all;
}

QString BroadcastCatalogue::nameOf(QString const& path)
{
    QString const plain = QUrl::fromPercentEncoding(path.section('?', 0, 0).toUtf8());
    return plain.startsWith('/') ? plain : '/' + plain;
}
