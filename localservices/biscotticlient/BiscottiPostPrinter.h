#pragma once

#include "BiscottiPost.h"

#include <QByteArray>

/// Makes posts readable: one line for each.
namespace BiscottiPostPrinter
{

/// "TIME TOPICS [SENDER:] BODY" and a line end. A post that tells no time gets the one given. Nothing of a post can
/// break the line or reach the terminal as a command.
QByteArray line(BiscottiPost const& post, QDateTime const& arrival);

/// The text with what is not printable written as "\n", "\t", "\\", "\x1b" or "\u202e".
QString escaped(QString const& text);

} // namespace BiscottiPostPrinter
