#pragma once

#include "Playlist.h"

/// A playlist in the form of an INI file: below the line "[Reference]", up to the next section, lines such as
/// "Ref1=http://host/path". The addresses are ways to one and the same stream, so they make one item.
class RefPlaylist : public Playlist
{
    Q_OBJECT

public:
    using Playlist::Playlist;

    void parse() override;
};
