#pragma once

#include <QString>

class Logger;
class QSettings;
class SecretKeeper;

/// Secrets in the settings file, enciphered: a mark, then the keeper's bytes in Base64. Main thread only.
class SecretStore
{
public:
    static constexpr char const* enciphered = "sealed:"; ///< The mark.

    /// Borrowed; null for none, which reads and writes nothing.
    void setKeeper(SecretKeeper* keeper);

    /// The secret under a key of the group that the settings are in; null when there is none, or none that can be
    /// read, which the log tells once. One in plain text, as older files and people have it, is enciphered at once.
    QString read(QSettings& settings, QString const& key);

    /// Stores it; nothing in plain text, ever. An empty one takes the key away. Returns whether it is stored.
    bool write(QSettings& settings, QString const& key, QString const& secret);

    /// Whether something is stored that cannot be read, so that its place is to be left alone.
    bool isUnreadable(QSettings const& settings, QString const& key) const;

private:
    static Logger* log;

    QString encrypt(QString const& secret) const;
    QString decrypt(QString const& stored) const;

    SecretKeeper* _keeper = nullptr;
    bool _hasToldUnreadable = false;
};
