#pragma once

#include "DirectoryChannel.h"
#include "WebRequest.h"

/// Where the services of this machine are, to turn the addresses of the directory into whole ones. A value.
struct ServicePlaces {
    quint16 mmsHttp = 0;
    quint16 mmsTcp = 0;
    QString rtsp; ///< "HOST:PORT" of a server of another program; empty when there is none.

    /// The address with the place in its braces put in, as the client that asks can reach it; empty for a service
    /// that does not run.
    QString resolve(QString const& address, WebRequest const& request) const;

    /// The address of a channel's logo: its own, or one that is drawn here.
    QString logoOf(DirectoryChannel const& channel, WebRequest const& request) const;
};
