#include "TokenGenerator.h"

#include "StreamToken.h"

namespace
{
constexpr qint64 secondsOfDay = 24 * 60 * 60;
} // namespace

QString TokenGenerator::token(QString const& key, QString const& path, QDateTime const& now) const
{
    return QString::fromLatin1(StreamToken::make(key.toUtf8(), path, expiry(now.toSecsSinceEpoch())));
}

qint64 AkamaiTokenGenerator::expiry(qint64 now) const
{
    return now + secondsOfDay;
}

qint64 LevelThreeTokenGenerator::expiry(qint64 now) const
{
    return (now / secondsOfDay + 2) * secondsOfDay - 1;
}
