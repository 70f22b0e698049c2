#pragma once

#include "DirectoryChannel.h"

#include <QByteArray>
#include <QList>

struct ServicePlaces;
struct WebRequest;

/// The document that viewers' programs read the directory from: XML with an element "channel" for each, whose
/// children hold texts (see ChannelField); the streams are "latte-uri" and, beyond the first, "additional-latte-uri".
/// A channel that a viewer has made has "viewer-added".
namespace ChannelDocument
{

/// With addresses as the client that asks can reach them.
QByteArray write(QList<DirectoryChannel> const& channels, ServicePlaces const& places, WebRequest const& request);

} // namespace ChannelDocument
