#include "AsxPlaylist.h"
#include "RefPlaylist.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace
{

/// Refused or read within the limits; reading it again gives the same.
template<typename Kind>
void read(QString const& text)
{
    Kind playlist(text);
    playlist.parse();
    QVector<PlaylistItem> const items = playlist.items();
    playlist.parse();
    if (items.size() > Playlist::maximumItems || items.size() != playlist.items().size())
        std::abort();
    for (PlaylistItem const& item : items) {
        bool const isOneEmpty = std::ranges::any_of(item.urls(), [](QString const& url) { return url.isEmpty(); });
        if (isOneEmpty || item.urls().size() > PlaylistItem::maximumUrls || item.repeat() < 1 || item.duration() < -1)
            std::abort();
    }
}

} // namespace

/// Whatever a server sends, as a playlist of either kind.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    QByteArray const bytes(reinterpret_cast<char const*>(data), static_cast<qsizetype>(size));
    read<AsxPlaylist>(Playlist::decode(bytes));
    read<RefPlaylist>(Playlist::decode(bytes));
    return 0;
}
