#pragma once

#include <QByteArray>
#include <QString>

/// How an address is watched by a WebCache. A value.
struct WebCacheInterest {
    /// Tells why content is not to be taken, or nothing. Called on the queue's thread, whoever has set it may be
    /// gone by then.
    using Check = QString (*)(QByteArray const& content);

    Check check = nullptr; ///< Null takes all.
    bool isUrgent = false; ///< Fetched before others of the same server; soon again while there is none.
};

/// What a WebCache knows of an address that is watched. A value.
struct WebCacheEntry {
    WebCacheInterest interest;
    bool isSeen = false;      ///< Whether it has been looked for on the disk.
    bool isAvailable = false; ///< Since then.
    bool isForced = false;    ///< The next request is made even if nothing has changed.
    bool wasForced = false;   ///< The one under way is.
    bool isOverdue = false;   ///< That request was due while one was under way.
    int updates = 0;          ///< That were asked for since content was last taken.
    int failures = 0;         ///< Since it was last fetched.
};
