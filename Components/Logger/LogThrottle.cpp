#include "LogThrottle.h"

#include <algorithm>

bool LogThrottle::admits(char const* file, int line, int level, size_t textHash, qint64 msNow)
{
    QMutexLocker locker(&_mutex);
    Place& place = _places[{file, line}];
    if (place.texts.empty())
        place.msBegin = msNow;
    bool const isNew = std::find(place.texts.begin(), place.texts.end(), textHash) == place.texts.end();
    if (isNew && std::ssize(place.texts) < textsPerPeriod) {
        place.texts.push_back(textHash);
        return true;
    }
    if (place.leftOut++ == 0)
        place.level = level;
    return false;
}

QList<LogThrottle::LeftOut> LogThrottle::takeLeftOut(qint64 msNow)
{
    QMutexLocker locker(&_mutex);
    if (msNow < _msNextLook)
        return {};
    QList<LeftOut> all;
    _msNextLook = msNow + msPeriod;
    for (auto place = _places.begin(); place != _places.end();) {
        if (qint64 const msEnd = place->msBegin + msPeriod; msNow < msEnd) {
            _msNextLook = std::min(_msNextLook, msEnd);
            ++place;
            continue;
        }
        if (place->leftOut > 0)
            all.append(
                {static_cast<char const*>(place.key().first), place.key().second, place->level, place->leftOut});
        place = _places.erase(place);
    }
    return all;
}
