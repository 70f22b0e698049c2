#pragma once

#include <QString>

class HttpResponseHeader;

/// What a Windows Media server tells in the "Pragma" lines of a response, such as
/// `no-cache,client-id=3158,features="broadcast,playlist",timeout=60000`.
struct MmsPragmas {
    /// What we call ourselves, and what we can do. The answers of servers depend on these texts.
    static constexpr char const* userAgent = "NSPlayer/11.0.5721.5145";
    static constexpr char const* supported = "com.microsoft.wm.srvppair, com.microsoft.wm.sswitch, "
                                             "com.microsoft.wm.predstrm, com.microsoft.wm.startupprofile";
    static constexpr char const* clientInfo = "xClientGUID=";

    /// Time-outs of servers are taken only from this range, in ms: one much shorter would end every stream, and one
    /// much longer would keep a viewer waiting for a server that is gone.
    static constexpr int minimumTimeout = 1000;
    static constexpr int maximumTimeout = 120000;

    /// A longer client id is cut: it comes back in every request.
    static constexpr qsizetype maximumIdLength = 64;

    static MmsPragmas of(HttpResponseHeader const& header);

    bool isBroadcast = false;
    bool isPlaylist = false;
    bool hasResetStream = false; ///< "xResetStrm" is there,
    bool isLive = false;         ///< and it is 1.
    QString clientId;            ///< Empty when none is given.
    int timeout = 0;             ///< ms; 0 when none is given, or none that makes sense.

private:
    void add(QString const& value);
};
