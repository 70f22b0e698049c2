#pragma once

#include <QtGlobal>

/// How messages to the central server are written.
enum class CentralisedBiscottiMessageEncoding { CanonicalXer = 0, BasicXer = 1, Der = 2 };

/// How messages from the central server are read.
enum class CentralisedBiscottiMessageDecoding { Xer = 0, Ber = 1 };

/// The largest message that is written or read, in bytes. The largest posts known are chat lines and vote documents
/// of a few KiB; beyond this, one peer could make the others hold any amount of half-read bytes.
constexpr qsizetype centralisedBiscottiMaximumMessageBytes = 1024 * 1024;
