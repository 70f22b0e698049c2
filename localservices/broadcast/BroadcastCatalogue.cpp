#include "BroadcastCatalogue.h"

#include "StreamToken.h"

#include <QUrl>
#include <QUrlQuery>

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

void BroadcastCatalogue::setKey(QString const& name, QByteArray const& key)
{
    if (key.isEmpty())
        _keys.remove(nameOf(name));
    else
        _keys.insert(nameOf(name), key);
}

bool BroadcastCatalogue::admits(Broadcast const& broadcast, QString const& path, qint64 now) const
{
    auto const key = _keys.constFind(broadcast.name());
    if (key == _keys.constEnd())
        return true;
    QUrlQuery const query(path.section('?', 1));
    QString const token = query.queryItemValue(QLatin1String(StreamToken::queryItem), QUrl::FullyDecoded);
    return StreamToken::isValid(*key, broadcast.name(), token.toLatin1(), now);
}

QString BroadcastCatalogue::nameOf(QString const& path)
{
    QString const plain = QUrl::fromPercentEncoding(path.section('?', 0, 0).toUtf8());
    return plain.startsWith('/') ? plain : '/' + plain;
}
