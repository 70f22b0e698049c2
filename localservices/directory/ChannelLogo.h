#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

/// Logos for channels that bring none: a sign and colours that follow from the id, another one for each.
namespace ChannelLogo
{

inline constexpr int size = 128; ///< Pixels of either side.

QImage draw(QString const& id);

/// The same as PNG.
QByteArray png(QString const& id);

} // namespace ChannelLogo
