#include "RsaProvider.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "RsaKeyFile.h"

Logger* RsaProvider::log = LoggerManager::logger();

RsaProvider::RsaProvider(QString const& keyFile, QObject* parent) : QObject(parent), _keyFile(keyFile) {}

RsaProvider::~RsaProvider()
{
    _maker = {}; // Before what it calls back to is gone.
}

void RsaProvider::prepare()
{
    if (_isPrepared)
        return;
    _isPrepared = true;
    RsaKeyFile file(_keyFile);
    _key = file.load();
    if (isReady())
        return;
    LOG_WARNING("Making a new key for stored secrets; those kept before are asked for again. The key in %s: %s.",
                qUtf8Printable(_keyFile), qUtf8Printable(file.complaint()));
    _maker = std::jthread([this](std::stop_token const& stop) { makeKey(stop); });
}

/// On the thread of its own.
void RsaProvider::makeKey(std::stop_token const& stop)
{
    RsaKey const made = RsaKey::generate(stop);
    if (stop.stop_requested())
        return;
    RsaKeyFile file(_keyFile);
    RsaKey const key = made.isNull() ? RsaKey() : file.store(made);
    QMetaObject::invokeMethod(this, [this, key, complaint = file.complaint()] { onKeyMade(key, complaint); });
}

void RsaProvider::onKeyMade(RsaKey const& key, QString const& complaint)
{
    _key = key;
    if (isReady()) {
        emit ready();
        return;
    }
    LOG_ERROR("Secrets cannot be stored: no key could be kept in %s: %s", qUtf8Printable(_keyFile),
              qUtf8Printable(complaint));
    _isUnavailable = true;
    emit unavailable();
}

QByteArray RsaProvider::encrypt(QByteArray const& plain)
{
    prepare();
    return _key.encrypt(plain);
}

std::optional<QByteArray> RsaProvider::decrypt(QByteArray const& enciphered)
{
    prepare();
    return _key.decrypt(enciphered);
}
