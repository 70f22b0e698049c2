#pragma once

#include "ChannelDescription.h"

#include <QString>

/// Channels that a viewer names by an address or a file: their descriptions. No state.
namespace OwnChannels
{

/// Whether a text is an address, with a scheme and "://", rather than a file name.
bool isAddress(QString const& text);

/// The root id part of a file name or address: its UTF-8 bytes in hexadecimal.
QString channelIdFromFileName(QString const& name);

/// A stream that has sound and pictures, in English.
StreamDescription streamWithBothTracks(Uri const& uri);

/// The channel of an address, for which isAddress() holds.
ChannelDescription describeStream(QString const& url, QString const& title);

/// The channel of a file's name, or of an address of a file.
ChannelDescription describeFile(QString const& path);

/// Whether a root id tells the user or password of an address to whoever can read hexadecimal digits: such a one is
/// not stored.
bool hasSecret(QString const& rootId);

} // namespace OwnChannels
