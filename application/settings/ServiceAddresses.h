#pragma once

#include "Uri.h"

#include <QString>

/// Where on the service's host each of its pages and documents is. The addresses end as named here; those that end
/// with a slash are the beginning of others.
class ServiceAddresses
{
public:
    /// The base address must be isUsable(); a slash at its end makes no difference. The version is the program's.
    ServiceAddresses(Uri const& base, QString const& version);

    /// Whether an address can be a base: http or https, with a host, without a query.
    static bool isUsable(Uri const& base);

    Uri base() const { return Uri(_base); }
    Uri channelsDocument() const; ///< The directory of channels, as this version of the program reads it.
    Uri entitlements() const;     ///< A document that changes with who is entitled to which channel.
    QString channels() const { return _base + "/channels/"; }
    QString streams() const { return _base + "/client/" + _version + "/streams/"; }
    QString stripes() const { return _base + "/client/" + _version + "/stripes/"; }

    Uri logUpload() const { return under("/client/logs"); }
    Uri streamsLogin() const { return under("/account/streams/login"); }
    Uri invitations() const { return under("/account/invitations"); }
    Uri chatModerators() const { return under("/roles/Chat%20Moderator/users.xml"); }
    Uri buzzFeed() const { return under("/buzzes.xml"); }
    Uri help() const { return under("/help"); }
    Uri support() const { return under("/support"); }
    Uri feedback() const { return under("/feedback"); }

private:
    Uri ofVersion(char const* name) const;
    Uri under(char const* path) const { return Uri(_base + path); }

    QString _base; ///< Without a slash at its end.
    QString _version;
};
