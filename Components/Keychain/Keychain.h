#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

/// Finds the keys that messages are signed with and verified by, as an interface. A key is opaque here.
class Keychain : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The public key of the id; empty if it is not known, in which case one of the signals may follow later.
    virtual QByteArray publicKeyFor(QString const& id) = 0;

    /// The private key of the id; empty if it is not known.
    virtual QByteArray privateKeyFor(QString const& id) = 0;
    virtual void setPrivateKeyFor(QString const& id, QByteArray const& key) = 0;

signals:
    void publicKeyUpdated(QString id, QByteArray key);
    void publicKeyUnavailable(QString id);
};
