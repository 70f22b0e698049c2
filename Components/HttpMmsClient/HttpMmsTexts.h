#pragma once

#include "MmsPragmas.h"

/// What is said to servers of MMS over HTTP, letter by letter: their answers depend on it.
struct HttpMmsTexts {
    static constexpr char const* userAgent = MmsPragmas::userAgent;
    static constexpr char const* supported = MmsPragmas::supported;
    static constexpr char const* pragmaMediaInfo =
        "no-cache,rate=1.000000,stream-time=0,stream-offset=0:0,packet-num=4294967295,max-duration=0";
    static constexpr char const* pragmaLive = "no-cache,rate=1.000000";
    static constexpr char const* pragmaSeekable =
        "no-cache,rate=1.000000,stream-time=0,stream-offset=%1:%2,packet-num=4294967295,max-duration=0";
    static constexpr char const* pragmaClientInfo = MmsPragmas::clientInfo;
    static constexpr char const* pragmaXPlay = "xPlayStrm=1";
    static constexpr char const* pragmaStreamCount = "stream-switch-count=";
    static constexpr char const* pragmaStreamEntry = "stream-switch-entry=";
    static constexpr char const* pragmaPlaylistGenId = "playlist-gen-id=";
    static constexpr char const* pragmaXPlayNextEntry = "xPlayNextEntry=1";
    static constexpr char const* pragmaClientId = "client-id=";
    static constexpr char const* pragmaStop = "xStopStrm=1";
    static constexpr char const* pragmaKeepAlive = "xKeepAliveInPause=1";
};
