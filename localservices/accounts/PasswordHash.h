#pragma once

#include <QByteArray>
#include <QString>

/// What is kept of a password: PBKDF2 with HMAC-SHA256 (RFC 8018) and a salt of its own. A value; any thread. Making
/// and comparing take a while, as they are meant to.
struct PasswordHash {
    static constexpr int usualIterations = 120'000;
    static constexpr int saltBytes = 16;
    static constexpr int hashBytes = 32;

    QByteArray salt;
    QByteArray hash; ///< Empty for an account that nobody can sign in to.
    int iterations = 0;

    static PasswordHash make(QString const& password, int iterations);

    /// In a time that does not depend on the password. False, after the same time, without a hash.
    bool matches(QString const& password) const;
};
