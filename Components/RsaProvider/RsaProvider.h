#pragma once

#include "RsaKey.h"
#include "SecretKeeper.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <optional>
#include <thread>

class Logger;

/// Enciphers the secrets in the settings with a key pair of this user's own, which is made on this machine at the
/// first use and never leaves it.
///
/// A key that is gone, damaged, or may have been read by others is replaced, with a line in the log; what was
/// enciphered with it cannot be read any more, and has to be asked for again. Lives on one thread, which reads the
/// key's file and never makes a key: that happens on a thread of its own.
class RsaProvider : public QObject, public SecretKeeper
{
    Q_OBJECT

public:
    explicit RsaProvider(QString const& keyFile, QObject* parent = nullptr);
    ~RsaProvider() override;

    /// Reads the key, or has one made. ready() or unavailable() follows unless isReady() holds already.
    void prepare();
    bool isReady() const { return !_key.isNull(); }
    /// Whether unavailable() has been emitted.
    bool isUnavailable() const { return _isUnavailable; }

    /// Empty as long as the key is being made, and for what is longer than 20,000 bytes.
    QByteArray encrypt(QByteArray const& plain) override;

    /// Nothing when it was enciphered with another key.
    std::optional<QByteArray> decrypt(QByteArray const& enciphered) override;

signals:
    void ready();

    /// There will be no key: its file cannot be written.
    void unavailable();

private:
    void makeKey(std::stop_token const& stop);
    void onKeyMade(RsaKey const& key, QString const& complaint);

    static Logger* log;

    QString const _keyFile;
    bool _isPrepared = false;
    bool _isUnavailable = false;
    RsaKey _key;
    std::jthread _maker; ///< Stopped and waited for at the end; that takes as long as one number is tested.
};
