#pragma once

#include "WebRequest.h"

#include <QByteArray>
#include <QCache>

#include <functional>

class Accounts;
class Directory;
class HlsBroadcasts;
class MyChannelsPage;
class ServiceApi;
struct ServicePlaces;

/// What stands where on the web service. Lives on one thread.
class DirectorySite
{
public:
    using Reply = std::function<void(WebAnswer const& answer)>;

    struct Parts {
        ServiceApi& api;
        Directory& directory;
        Accounts& accounts;
        MyChannelsPage& myChannels;
        HlsBroadcasts& hls;
        ServicePlaces const& places;
    };

    /// All are borrowed. The age, in seconds, is for how long viewers' programs need not ask for documents again.
    DirectorySite(Parts const& parts, int maximumAge);

    void handle(WebRequest const& request, Reply const& reply);

private:
    WebAnswer page(WebRequest const& request);
    WebAnswer channelDocument(WebRequest const& request);
    /// A document that is new whenever somebody may be entitled to something else.
    WebAnswer entitlements(WebRequest const& request);
    WebAnswer logo(WebRequest const& request);
    WebAnswer channelsPage() const;
    WebAnswer moderators() const;
    WebAnswer dated(WebRequest const& request, QByteArray const& type, qint64 changed,
                    std::function<QByteArray()> const& content) const;

    struct Made {
        qint64 changed = 0;
        QByteArray bytes;
    };

    Parts const _parts;
    int const _maximumAge;
    qint64 const _started;            ///< Seconds since the epoch; logos are as old as this.
    QCache<QString, Made> _documents; ///< By the address that they are for.
    QCache<QString, QByteArray> _logos;
};
