#pragma once

#include <QtGlobal>

/// What one client of the Biscotti server may ask of it, and what is kept for it. With all of it used up by all
/// clients that Service lets in, the server still fits into a small machine.
namespace BiscottiLimits
{

/// Of a post, in bytes. The largest known are vote documents of a few KiB.
constexpr qsizetype body = 64 << 10;

/// Of a message, subscription or post id, in characters. Ours have about thirty.
constexpr qsizetype id = 256;

/// Of the sender's id, name and address in a message, each, in characters.
constexpr qsizetype sender = 1024;

/// Of a topic: characters, and levels, each of which costs a node where it is subscribed to.
constexpr qsizetype topicCharacters = 1024;
constexpr qsizetype topicLevels = 32;

/// Of one post.
constexpr qsizetype topicsOfPost = 100;

/// Of one client, and of all together.
constexpr qsizetype subscriptionsOfClient = 1000;
constexpr qsizetype subscriptions = 500'000;

/// The newest message ids of one client, by which a message that is sent again is recognised. Posts are counted apart
/// from the rest: a client sends the post that a broken link cut off again behind all its subscriptions.
constexpr qsizetype postsRemembered = 64;
constexpr qsizetype othersRemembered = 16;

/// Clients that are gone and may come back: how many are remembered, and for how long. Clients give a post up after
/// 45 seconds.
constexpr qsizetype absentClients = 10'000;
constexpr qint64 msAbsent = 10 * 60'000;

/// What all clients together may have sent of messages that are not whole yet, in bytes.
constexpr qint64 bytesHeld = 64 << 20;

/// Messages that could be read, but made no sense, before their sender is dropped.
constexpr int malformedMessages = 16;

} // namespace BiscottiLimits
