#include "WebCertificate.h"

#include <QHostAddress>
#include <QSslCertificate>
#include <QSslKey>

#include <memory>
#include <openssl/bio.h>
#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>

namespace
{
constexpr long secondsOfDay = 24 * 3600;

template<auto free>
struct Free {
    template<typename T>
    void operator()(T* object) const
    {
        free(object);
    }
};
using Key = std::unique_ptr<EVP_PKEY, Free<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, Free<X509_free>>;
using Bio = std::unique_ptr<BIO, Free<BIO_free_all>>;

bool addExtension(X509* certificate, int id, QByteArray const& value)
{
    std::unique_ptr<X509_EXTENSION, Free<X509_EXTENSION_free>> const extension(
        X509V3_EXT_conf_nid(nullptr, nullptr, id, value.constData()));
    return extension && X509_add_ext(certificate, extension.get(), -1) == 1;
}

/// Numbers of a browser's liking: positive, and not that of an earlier start.
bool setSerial(X509* certificate)
{
    quint32 number = 0;
    return RAND_bytes(reinterpret_cast<unsigned char*>(&number), sizeof number) == 1 &&
           ASN1_INTEGER_set_uint64(X509_get_serialNumber(certificate), number) == 1;
}

Certificate sign(EVP_PKEY* key, WebCertificate::Validity validity, QByteArray const& names)
{
    bool const isGood = validity == WebCertificate::Validity::Good;
    Certificate certificate(X509_new());
    if (!certificate)
        return {};
    X509* const x = certificate.get();
    X509_NAME* const name = X509_get_subject_name(x);
    bool const isMade =
        X509_set_version(x, 2) == 1 && setSerial(x) &&
        X509_gmtime_adj(X509_getm_notBefore(x), -WebCertificate::daysGood * secondsOfDay) &&
        X509_gmtime_adj(X509_getm_notAfter(x), isGood ? WebCertificate::daysGood * secondsOfDay : -secondsOfDay) &&
        X509_set_pubkey(x, key) == 1 &&
        X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC,
                                   reinterpret_cast<unsigned char const*>("Ombravision local services"), -1, -1,
                                   0) == 1 &&
        X509_set_issuer_name(x, name) == 1 && addExtension(x, NID_basic_constraints, "critical,CA:TRUE") &&
        addExtension(x, NID_subject_alt_name, names) && X509_sign(x, key, EVP_sha256()) > 0;
    return isMade ? std::move(certificate) : Certificate();
}

QByteArray textOf(BIO* bio)
{
    char* bytes = nullptr;
    long const size = BIO_get_mem_data(bio, &bytes);
    return size > 0 ? QByteArray(bytes, size) : QByteArray();
}
} // namespace

std::optional<WebCertificate> WebCertificate::make(Validity validity, QString const& address)
{
    QByteArray names = "DNS:localhost,IP:127.0.0.1,IP:::1";
    QHostAddress const place(address);
    if (!place.isNull() && !place.isLoopback() && place != QHostAddress::Any && place != QHostAddress::AnyIPv6 &&
        place != QHostAddress::AnyIPv4)
        names += ",IP:" + place.toString().toLatin1();
    Key const key(EVP_PKEY_Q_keygen(nullptr, nullptr, "EC", "P-256"));
    Certificate const certificate = key ? sign(key.get(), validity, names) : Certificate();
    Bio const certificateText(BIO_new(BIO_s_mem()));
    Bio const keyText(BIO_new(BIO_s_mem()));
    if (!certificate || !certificateText || !keyText ||
        PEM_write_bio_X509(certificateText.get(), certificate.get()) != 1 ||
        PEM_write_bio_PrivateKey(keyText.get(), key.get(), nullptr, nullptr, 0, nullptr, nullptr) != 1)
        return std::nullopt;
    WebCertificate made;
    made.pem = textOf(certificateText.get());
    made.configuration = QSslConfiguration::defaultConfiguration();
    made.configuration.setLocalCertificate(QSslCertificate(made.pem));
    made.configuration.setPrivateKey(QSslKey(textOf(keyText.get()), QSsl::Ec));
    made.configuration.setPeerVerifyMode(QSslSocket::VerifyNone); // Viewers have no certificates.
    return made;
}
