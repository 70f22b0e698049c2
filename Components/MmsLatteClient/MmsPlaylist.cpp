#include "MmsPlaylist.h"

#include "HttpContentChecker.h"
#include "Playlist.h"

#include <algorithm>
#include <numeric>
#include <utility>

qsizetype MmsPlaylist::indexOf(QString const& url) const
{
    auto const holds = [&](Entry const& entry) { return entry.item.key() == url || entry.item.urls().contains(url); };
    auto const it = std::find_if(_playlist.cbegin(), _playlist.cend(), holds);
    return it == _playlist.cend() ? -1 : it - _playlist.cbegin();
}

bool MmsPlaylist::hasAlternative() const
{
    return _playlist.size() > 1 || (!isEmpty() && _playlist[_currentItem].item.urls().size() > 1);
}

int MmsPlaylist::addressCount() const
{
    return static_cast<int>(
        std::accumulate(_playlist.cbegin(), _playlist.cend(), qsizetype{0},
                        [](qsizetype sum, Entry const& entry) { return sum + entry.item.urls().size(); }));
}

void MmsPlaylist::enter(QString const& url, QString const& referrer)
{
    if (contains(url))
        return;
    Entry entry;
    entry.item.addUrl(url);
    entry.item.setChecked(true); // Its one address is the one that is being tried.
    entry.referrer = referrer;
    _playlist.append(entry);
}

void MmsPlaylist::setStream(QString const& url, bool useHttp)
{
    _streams.insert(url, useHttp);
    if (qsizetype const index = indexOf(url); index >= 0) {
        PlaylistItem& item = _playlist[index].item;
        item.setType(HttpContentChecker::MmsStream);
        item.setUseHttp(useHttp);
        item.setChecked(true);
        if (item.urls().value(item.nextUrl()) == url)
            take(index);
    }
}

MmsPlaylist::Address MmsPlaylist::addressOf(Entry const& entry) const
{
    Address address;
    address.url = entry.item.urls().value(entry.item.nextUrl());
    address.referrer = entry.referrer;
    bool const wasAsked = entry.item.type() == HttpContentChecker::Unknown && entry.item.isChecked();
    address.isToBeAsked = !isStream(address.url) && !wasAsked;
    address.useHttp = _streams.value(address.url, entry.item.useHttp());
    return address;
}

/// Hands out the next address of an item. After the last one the current item moves on.
MmsPlaylist::Address MmsPlaylist::take(qsizetype index)
{
    Entry& entry = _playlist[index];
    Address const address = addressOf(entry);
    if (entry.item.incNextUrl())
        return address;
    entry.item.setChecked(true);
    if (index != _currentItem)
        return address;
    _currentItem = (_currentItem + 1) % _playlist.size();
    if (_currentItem == 0) {
        for (Entry& other : _playlist) // What was down in this pass is asked again in the next one.
            other.item.setChecked(other.item.type() != HttpContentChecker::Unknown);
    }
    return address;
}

std::optional<MmsPlaylist::Address> MmsPlaylist::current() const
{
    if (isEmpty())
        return std::nullopt;
    return addressOf(_playlist[_currentItem]);
}

std::optional<MmsPlaylist::Address> MmsPlaylist::next()
{
    if (isEmpty())
        return std::nullopt;
    return take(_currentItem);
}

std::optional<MmsPlaylist::Address> MmsPlaylist::nextOf(QString const& url)
{
    qsizetype const index = indexOf(url);
    if (index < 0 || _playlist[index].item.nextUrl() == 0)
        return std::nullopt;
    return take(index);
}

/// The item with those of its addresses that may lead to a stream.
PlaylistItem MmsPlaylist::withoutUseless(PlaylistItem const& item) const
{
    PlaylistItem useful;
    useful.setKey(item.key());
    useful.setTitle(item.title());
    useful.setAuthor(item.author());
    useful.setCopyright(item.copyright());
    useful.setRepeat(item.repeat());
    for (QString const& url : item.urls()) {
        if (!url.isEmpty() && !Playlist::isFiltered(url) && !_opened.contains(url))
            useful.addUrl(url);
    }
    return useful;
}

bool MmsPlaylist::replace(QString const& url, QVector<PlaylistItem> const& items)
{
    qsizetype place = indexOf(url);
    Entry origin;
    origin.referrer = url;
    origin.depth = place < 0 ? 1 : _playlist[place].depth + 1;
    _opened.insert(url);
    remove(url);
    if (place < 0)
        place = _playlist.size();
    qsizetype const first = place;
    for (PlaylistItem const& item : items) {
        PlaylistItem const useful = withoutUseless(item);
        if (!useful.urls().isEmpty() && origin.depth <= maximumDepth && insert(useful, origin, place))
            ++place;
    }
    if (place == first)
        return false;
    _currentItem = first;
    return true;
}

/// Whether a new item was inserted; one that is known gets the addresses that it lacks.
bool MmsPlaylist::insert(PlaylistItem const& item, Entry const& origin, qsizetype index)
{
    auto const isIt = [&](Entry const& entry) { return entry.item.key() == item.key(); };
    if (auto const known = std::find_if(_playlist.begin(), _playlist.end(), isIt); known != _playlist.end()) {
        for (QString const& url : item.urls())
            known->item.addUrl(url);
        return false;
    }
    if (_playlist.size() >= maximumItems)
        return false;
    Entry entry = origin;
    entry.item = item;
    _playlist.insert(index, entry);
    return true;
}

void MmsPlaylist::remove(QString const& url)
{
    qsizetype const index = indexOf(url);
    if (index < 0)
        return;
    _playlist.removeAt(index);
    if (_currentItem > index)
        --_currentItem;
    if (_currentItem >= _playlist.size())
        _currentItem = 0;
}

void MmsPlaylist::clear()
{
    *this = MmsPlaylist();
}
