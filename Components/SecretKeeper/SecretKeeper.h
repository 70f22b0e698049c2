#pragma once

#include <QByteArray>

#include <optional>

/// Makes secrets unreadable to whoever sees what is stored, as an interface. Not thread-safe.
class SecretKeeper
{
public:
    virtual ~SecretKeeper() = default;

    /// The enciphered bytes; empty when they cannot be made, as without a key or from more bytes than it can take.
    virtual QByteArray encrypt(QByteArray const& plain) = 0;

    /// What encrypt() was given; nothing when these bytes were not made with the key at hand.
    virtual std::optional<QByteArray> decrypt(QByteArray const& enciphered) = 0;
};
