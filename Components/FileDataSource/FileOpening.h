#pragma once

#include "Demuxer.h"
#include "FFmpegProxy.h"

#include <memory>

class Logger;
class PipeReader;
struct AVDictionary;
struct AVIOContext;

/// How FFmpeg opens a local file, a pipe or an address of the network. Runs on a demuxer's thread.
///
/// An address of the network is confined to network protocols, playlists included, with TLS certificates verified and
/// the proxy used.
class FileOpening
{
public:
    /// A path, a "file://" address or an address whose protocol FFmpeg knows.
    FileOpening(QString const& name, QNetworkProxy const& proxy);

    static bool isNetwork(QString const& name);

    FormatContextPointer operator()(Demuxer const& demuxer) const;

private:
    FormatContextPointer openPipe(AVFormatContext* prepared, Demuxer const& demuxer) const;
    static int openNested(AVFormatContext* context, AVIOContext** io, char const* url, int flags,
                          AVDictionary** options);

    static Logger* log;

    QString _name; ///< For the log.
    FFmpegProxy _proxy;
    bool _isNetwork;
    QByteArray _path; ///< A local path or an address, in bytes.
    mutable std::shared_ptr<PipeReader> _pipe;
};
