#pragma once

#include <QByteArray>
#include <QSslConfiguration>
#include <QString>

#include <optional>

/// A certificate of this service's own, with its key: for this machine's names, signed by itself. A value.
struct WebCertificate {
    enum class Validity { Good, Expired };

    static constexpr int daysGood = 30;

    QByteArray pem; ///< The certificate alone, for those who are to trust it.
    QSslConfiguration configuration;

    /// A new one, with a new key that is nowhere else, also for `address` if that is another name of this machine.
    /// One that is expired was good until yesterday. Nothing when the library cannot make it.
    static std::optional<WebCertificate> make(Validity validity, QString const& address);
};
