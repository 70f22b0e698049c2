#include "PlaylistItem.h"

void PlaylistItem::addUrl(QString const& url)
{
    if (_urls.size() >= maximumUrls || _urls.contains(url))
        return;
    _urls.append(url);
    if (_key.isEmpty())
        _key = url;
}

bool PlaylistItem::incNextUrl()
{
    if (++_nextUrl < _urls.size())
        return true;
    _nextUrl = 0;
    return false;
}
