#include "Logger.h"
#include "LoggerManager.h"
#include "RefPlaylist.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    LoggerManager::logger()->setLevel(Logger::Fatal);
    return 0;
}

/// Whatever a server sends is refused or read within the limits, and reading it again gives the same.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    QByteArray const bytes(reinterpret_cast<char const*>(data), static_cast<qsizetype>(size));
    RefPlaylist playlist(Playlist::decode(bytes));
    playlist.parse();
    QVector<PlaylistItem> const items = playlist.items();
    playlist.parse();
    if (items.size() > Playlist::maximumItems || items.size() != playlist.items().size())
        std::abort();
    for (PlaylistItem const& item : items)
        for (QString const& url : item.urls())
            if (!url.startsWith("http", Qt::CaseInsensitive) || url.contains('\n'))
                std::abort();
    return 0;
}
