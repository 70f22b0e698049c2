#pragma once

#include <QByteArray>

#include <memory>
#include <optional>
#include <stop_token>

struct evp_pkey_st; // OpenSSL's EVP_PKEY.

/// An RSA key pair, as a value that shares it; const operations may run on several threads.
///
/// Enciphers with OAEP (RFC 8017) over SHA-256. What is longer than one block takes goes into several, one after the
/// other.
class RsaKey
{
public:
    static constexpr int bits = 3072;
    static constexpr int blockBytes = bits / 8;                     ///< of what is enciphered
    static constexpr int plainBlockBytes = blockBytes - 2 * 32 - 2; ///< RFC 8017, section 7.1.1
    static constexpr int maximumBlocks = 64;

    /// No key.
    RsaKey() = default;

    /// Makes one, which takes a second or so; none when it was stopped, or the system has no chance to give.
    static RsaKey generate(std::stop_token const& stop);

    /// The key in a PEM text (RFC 7468, "PRIVATE KEY", not enciphered); none if that has no RSA key of that size.
    static RsaKey fromPem(QByteArray const& pem);
    QByteArray toPem() const;

    bool isNull() const { return !_key; }

    /// Each time different; empty without a key, or when it would be too long.
    QByteArray encrypt(QByteArray const& plain) const;

    /// Nothing for what was not enciphered with this key, or was changed.
    std::optional<QByteArray> decrypt(QByteArray const& enciphered) const;

private:
    explicit RsaKey(evp_pkey_st* key);

    std::shared_ptr<evp_pkey_st> _key;
};
