#include "SecretStore.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "SecretKeeper.h"
#include "SettingsText.h"

#include <QSettings>

Logger* SecretStore::log = LoggerManager::logger();

namespace
{

QString storedText(QSettings const& settings, QString const& key)
{
    return SettingsText::textOf(settings.value(key));
}

} // namespace

void SecretStore::setKeeper(SecretKeeper* keeper)
{
    _keeper = keeper;
    _hasToldUnreadable = false;
}

QString SecretStore::read(QSettings& settings, QString const& key)
{
    QString stored = storedText(settings, key);
    if (stored.isEmpty())
        return {};
    if (!stored.startsWith(enciphered)) {
        if (QString const text = encrypt(stored); !text.isEmpty())
            settings.setValue(key, text);
        return stored;
    }
    QString secret = decrypt(stored);
    if (secret.isNull() && !std::exchange(_hasToldUnreadable, true))
        LOG_WARNING("The stored secret %s cannot be read; it has to be given again.", qUtf8Printable(key));
    return secret;
}

bool SecretStore::write(QSettings& settings, QString const& key, QString const& secret)
{
    if (secret.isEmpty()) {
        settings.remove(key);
        return true;
    }
    QString const stored = storedText(settings, key);
    if (stored.startsWith(enciphered) && decrypt(stored) == secret)
        return true; // Enciphering is never twice the same: what has not changed leaves the file as it is.
    if (QString const text = encrypt(secret); !text.isEmpty()) {
        settings.setValue(key, text);
        return true;
    }
    if (stored == secret)
        return true; // As somebody wrote it by hand.
    LOG_WARNING("The secret %s could not be enciphered and is not stored.", qUtf8Printable(key));
    return false;
}

bool SecretStore::isUnreadable(QSettings const& settings, QString const& key) const
{
    QString const stored = storedText(settings, key);
    return stored.startsWith(enciphered) && decrypt(stored).isNull();
}

QString SecretStore::encrypt(QString const& secret) const
{
    QByteArray const bytes = _keeper ? _keeper->encrypt(secret.toUtf8()) : QByteArray();
    return bytes.isEmpty() ? QString() : QString(enciphered + QString::fromLatin1(bytes.toBase64()));
}

QString SecretStore::decrypt(QString const& stored) const
{
    if (!_keeper)
        return {};
    auto const bytes = QByteArray::fromBase64Encoding(stored.mid(qstrlen(enciphered)).toLatin1());
    if (!bytes)
        return {};
    auto const plain = _keeper->decrypt(*bytes);
    return plain ? QString::fromUtf8(*plain) : QString();
}
