#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QString>

#include <optional>

class BroadcastCatalogue;

/// The documents that lead players to the streams: for each stream "/live" an ASX playlist "/live.asx" (and
/// "/live.wvx"), a reference playlist "/live.ref", and "/", a list of all addresses as text.
///
/// Playlists begin with dead entries, which a player has to get over: addresses where nobody answers.
class StreamDocuments
{
public:
    struct Document {
        QByteArray type; ///< The content type.
        QByteArray content;
    };

    explicit StreamDocuments(BroadcastCatalogue const& catalogue) : _catalogue(catalogue) {}

    /// Where the streams are served; port 0 for a protocol that is not.
    void setPorts(quint16 http, quint16 tcp);
    void setDeadEntries(int count) { _deadEntries = count; }

    /// The document of a path. Addresses in it name the host of the request's Host line as far as it is one,
    /// otherwise 127.0.0.1.
    std::optional<Document> find(QString const& path, QByteArray const& hostLine) const;

    /// All addresses, one a line.
    QByteArray addresses(QString const& host) const;

private:
    QStringList addressesOf(QString const& name, QString const& host) const;
    QByteArray asx(QString const& name, QString const& host) const;
    QByteArray reference(QString const& name, QString const& host) const;

    BroadcastCatalogue const& _catalogue;
    quint16 _httpPort = 0;
    quint16 _tcpPort = 0;
    int _deadEntries = 1;
};
