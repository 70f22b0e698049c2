#include "RsaKey.h"

#include <openssl/bio.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rsa.h>

namespace
{

template<auto Free>
struct Deleter {
    template<typename T>
    void operator()(T* object) const
    {
        Free(object);
    }
};
using Context = std::unique_ptr<EVP_PKEY_CTX, Deleter<EVP_PKEY_CTX_free>>;
using Bio = std::unique_ptr<BIO, Deleter<BIO_free>>;

/// OpenSSL keeps a list of what went wrong on each thread, which nobody here reads.
struct ErrorScope {
    ~ErrorScope() { ERR_clear_error(); }
};

/// One block or more by one operation of OpenSSL; empty when it fails.
template<typename Operation>
QByteArray run(Operation operation, EVP_PKEY_CTX* context, QByteArray const& input)
{
    QByteArray output(RsaKey::blockBytes, Qt::Uninitialized);
    size_t size = output.size();
    auto* const to = reinterpret_cast<unsigned char*>(output.data());
    auto const* const from = reinterpret_cast<unsigned char const*>(input.constData());
    if (operation(context, to, &size, from, input.size()) <= 0)
        return {};
    output.truncate(static_cast<qsizetype>(size));
    return output.isNull() ? QByteArray("") : output;
}

bool usePadding(EVP_PKEY_CTX* context)
{
    return EVP_PKEY_CTX_set_rsa_padding(context, RSA_PKCS1_OAEP_PADDING) > 0 &&
           EVP_PKEY_CTX_set_rsa_oaep_md(context, EVP_sha256()) > 0 &&
           EVP_PKEY_CTX_set_rsa_mgf1_md(context, EVP_sha256()) > 0;
}

int goesOn(EVP_PKEY_CTX* context)
{
    return !static_cast<std::stop_token const*>(EVP_PKEY_CTX_get_app_data(context))->stop_requested();
}

} // namespace

RsaKey::RsaKey(EVP_PKEY* key) : _key(key, EVP_PKEY_free) {}

RsaKey RsaKey::generate(std::stop_token const& stop)
{
    ErrorScope const errors;
    Context const context(EVP_PKEY_CTX_new_id(EVP_PKEY_RSA, nullptr));
    if (!context || EVP_PKEY_keygen_init(context.get()) <= 0 ||
        EVP_PKEY_CTX_set_rsa_keygen_bits(context.get(), bits) <= 0)
        return {};
    std::stop_token token = stop;
    EVP_PKEY_CTX_set_app_data(context.get(), &token);
    EVP_PKEY_CTX_set_cb(context.get(), goesOn);
    EVP_PKEY* key = nullptr;
    return EVP_PKEY_keygen(context.get(), &key) > 0 ? RsaKey(key) : RsaKey();
}

RsaKey RsaKey::fromPem(QByteArray const& pem)
{
    ErrorScope const errors;
    Bio const bio(BIO_new_mem_buf(pem.constData(), static_cast<int>(pem.size())));
    // Without this OpenSSL would ask for a pass phrase on the terminal.
    auto const noPassPhrase = [](char*, int, int, void*) { return -1; };
    EVP_PKEY* const key = bio ? PEM_read_bio_PrivateKey(bio.get(), nullptr, noPassPhrase, nullptr) : nullptr;
    if (!key)
        return {};
    RsaKey result(key);
    bool const fits = EVP_PKEY_get_base_id(key) == EVP_PKEY_RSA && EVP_PKEY_get_bits(key) == bits;
    return fits ? result : RsaKey();
}

QByteArray RsaKey::toPem() const
{
    ErrorScope const errors;
    Bio const bio(BIO_new(BIO_s_secmem()));
    if (!bio || !_key || PEM_write_bio_PrivateKey(bio.get(), _key.get(), nullptr, nullptr, 0, nullptr, nullptr) <= 0)
        return {};
    char* text = nullptr;
    long const size = BIO_get_mem_data(bio.get(), &text);
    return {text, size};
}

QByteArray RsaKey::encrypt(QByteArray const& plain) const
{
    ErrorScope const errors;
    Context const context(_key ? EVP_PKEY_CTX_new(_key.get(), nullptr) : nullptr);
    if (!context || plain.size() > qsizetype(maximumBlocks) * plainBlockBytes ||
        EVP_PKEY_encrypt_init(context.get()) <= 0 || !usePadding(context.get()))
        return {};
    QByteArray enciphered;
    qsizetype position = 0;
    do { // The empty text has a block, too.
        QByteArray const block = run(EVP_PKEY_encrypt, context.get(), plain.mid(position, plainBlockBytes));
        if (block.isEmpty())
            return {};
        enciphered += block;
        position += plainBlockBytes;
    } while (position < plain.size());
    return enciphered;
}

std::optional<QByteArray> RsaKey::decrypt(QByteArray const& enciphered) const
{
    ErrorScope const errors;
    qsizetype const size = enciphered.size();
    Context const context(_key ? EVP_PKEY_CTX_new(_key.get(), nullptr) : nullptr);
    if (!context || size == 0 || size % blockBytes != 0 || size > qsizetype(maximumBlocks) * blockBytes ||
        EVP_PKEY_decrypt_init(context.get()) <= 0 || !usePadding(context.get()))
        return std::nullopt;
    QByteArray plain("");
    for (qsizetype position = 0; position < size; position += blockBytes) {
        QByteArray const block = run(EVP_PKEY_decrypt, context.get(), enciphered.mid(position, blockBytes));
        if (block.isNull())
            return std::nullopt;
        plain += block;
    }
    return plain;
}
