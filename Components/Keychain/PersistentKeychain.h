#pragma once

#include "Keychain.h"

/// A Keychain in front of another one, which answers. The place where keys would be kept from one run to the next:
/// all of them still come from the backing keychain, and so do the signals.
class PersistentKeychain : public Keychain
{
    Q_OBJECT

public:
    /// The backing keychain is borrowed.
    explicit PersistentKeychain(Keychain* backing, QObject* parent = nullptr);

    QByteArray publicKeyFor(QString const& id) override;
    QByteArray privateKeyFor(QString const& id) override;
    void setPrivateKeyFor(QString const& id, QByteArray const& key) override;

private:
    Keychain* _backing;
};
