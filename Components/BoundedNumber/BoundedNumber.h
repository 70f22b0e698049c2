#pragma once

#include <QString>

#include <limits>

class QSettings;

/// A whole number of the settings file and what it may be. A file that holds anything else does no harm.
struct BoundedNumber {
    char const* key;
    qint64 fallback; ///< Taken when the file has no such key, or no number there.
    qint64 minimum;
    qint64 maximum;

    static constexpr qint64 maximumPort = std::numeric_limits<quint16>::max();

    struct Reading {
        qint64 value;
        QString complaint; ///< In words, for the log; empty when the file was right.
    };

    /// What the file says, or the nearest bound of that.
    Reading read(QSettings const& settings) const;
};
