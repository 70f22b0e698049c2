#include "PersistentKeychain.h"

PersistentKeychain::PersistentKeychain(Keychain* backing, QObject* parent) : Keychain(parent), _backing(backing)
{
    connect(_backing, &Keychain::publicKeyUpdated, this, &Keychain::publicKeyUpdated);
    connect(_backing, &Keychain::publicKeyUnavailable, this, &Keychain::publicKeyUnavailable);
}

QByteArray PersistentKeychain::publicKeyFor(QString const& id)
{
    return _backing->publicKeyFor(id);
}

QByteArray PersistentKeychain::privateKeyFor(QString const& id)
{
    return _backing->privateKeyFor(id);
}

void PersistentKeychain::setPrivateKeyFor(QString const& id, QByteArray const& key)
{
    _backing->setPrivateKeyFor(id, key);
}
