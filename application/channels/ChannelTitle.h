#pragma once

#include <QString>

/// The titles of channels come from outside and may be anything.
namespace ChannelTitle
{

constexpr qsizetype longestInLine = 256; ///< More does not fit into any window.
constexpr qsizetype longestInMenu = 60;  ///< A menu is as wide as its widest entry.

/// The title wherever it is shown: of at most that many UTF-16 units, with an ellipsis where there were more; words
/// for one of which nothing would be seen. Any thread.
QString shown(QString const& title, qsizetype longest = longestInLine);

} // namespace ChannelTitle
