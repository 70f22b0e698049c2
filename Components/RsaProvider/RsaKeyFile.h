#pragma once

#include "RsaKey.h"

#include <QString>

/// The file that keeps a key pair from one run to the next, for the user who runs the program and nobody else.
class RsaKeyFile
{
public:
    static constexpr int maximumBytes = 65536;

    explicit RsaKeyFile(QString const& path) : _path(path) {}

    /// The key; without one, complaint() tells why.
    RsaKey load();

    /// Writes a key, with mode 0600, whole or not at all, in place of what cannot be used, and returns the one that
    /// stands there then: that of another process, if it came first. Without one, complaint() tells why.
    RsaKey store(RsaKey const& key);

    QString complaint() const { return _complaint; }

private:
    RsaKey fail(QString const& complaint);

    QString const _path;
    QString _complaint;
};
