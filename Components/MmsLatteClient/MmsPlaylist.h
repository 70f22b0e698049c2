#pragma once

#include "PlaylistItem.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QVector>

#include <optional>

/// The addresses that a stream can be had from, and which of them is next.
///
/// Items stand in the order of the playlists that they came from; those of a playlist take the place of the address
/// that led to it. A pass goes through all addresses of an item before the next item, and begins anew at the end.
class MmsPlaylist
{
public:
    static constexpr qsizetype maximumItems = 1000;
    static constexpr int maximumDepth = 8; ///< Of playlists within playlists.

    /// An address to try.
    struct Address {
        QString url;
        QString referrer;        ///< The address of the playlist that it stands in, or empty.
        bool isToBeAsked = true; ///< What it is has yet to be found out.
        bool useHttp = false;
    };

    bool isEmpty() const { return _playlist.isEmpty(); }
    bool contains(QString const& url) const { return indexOf(url) >= 0; }

    /// Whether there is anything else to switch to: a second item, or a second address of the current one.
    bool hasAlternative() const;

    /// All addresses of all items.
    int addressCount() const;

    /// Makes sure that the address is in some item.
    void enter(QString const& url, QString const& referrer);

    /// The item of this address is a stream, which is had from this address, by HTTP or TCP.
    void setStream(QString const& url, bool useHttp);
    bool isStream(QString const& url) const { return _streams.contains(url); }
    bool useHttp(QString const& url) const { return _streams.value(url, false); }

    /// The address that is next, without going on; nothing when there are no items.
    std::optional<Address> current() const;

    /// The address that is next; goes on to the one after it.
    std::optional<Address> next();

    /// The next address of the item that holds this one, unless all have been handed out in this pass; goes on.
    std::optional<Address> nextOf(QString const& url);

    /// Puts the items of a playlist in the place of the address that it was read from. Left out are addresses of
    /// pictures and of playlists that have been read already, and everything in one that lies too deep. Returns
    /// whether anything is left; the first item is then current.
    bool replace(QString const& url, QVector<PlaylistItem> const& items);

    void remove(QString const& url);
    void clear();

private:
    struct Entry {
        PlaylistItem item;
        QString referrer;
        int depth = 0; ///< How many playlists led here.
    };

    qsizetype indexOf(QString const& url) const;
    Address addressOf(Entry const& entry) const;
    Address take(qsizetype index);
    PlaylistItem withoutUseless(PlaylistItem const& item) const;
    bool insert(PlaylistItem const& item, Entry const& origin, qsizetype index);

    QList<Entry> _playlist;
    qsizetype _currentItem = 0;
    QHash<QString, bool> _streams; ///< Addresses that are known to be streams, and whether by HTTP.
    QSet<QString> _opened;         ///< Addresses that are known to be playlists.
};
