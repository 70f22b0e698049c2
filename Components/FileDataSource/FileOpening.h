#pragma once

#include "Demuxer.h"
#include "FFmpegProxy.h"

#include <atomic>
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
    /// What becomes of an opening. Any thread.
    struct Progress {
        std::atomic<bool> isAnswered{false};  ///< Something has been opened: the server speaks.
        std::atomic<int> error{0};            ///< FFmpeg's, of the last connection that failed, else of the whole.
        std::atomic<bool> isUntrusted{false}; ///< That one was, by its certificate.
        std::atomic<bool> isBroken{false};    ///< What a list led to last could not be opened; FFmpeg skips that.

        /// Whether what has failed would fail again: there is no such thing, or it is whole and cannot be played. All
        /// else may be better later. FFmpeg does not tell a name that there is not from one that nobody can look up
        /// now, nor 410 from what a busy server says, such as 429.
        bool isForGood() const;

        /// What has failed, for a viewer; empty where that is not known.
        QString reason() const;
    };

    /// A path, a "file://" address or an address whose protocol FFmpeg knows.
    FileOpening(QString const& name, QNetworkProxy const& proxy);

    static bool isNetwork(QString const& name);

    /// Whether an address of the network waits for a sender to come, instead of going to a server.
    static bool isListening(QString const& name);

    std::shared_ptr<Progress const> progress() const { return _progress; }

    FormatContextPointer operator()(Demuxer const& demuxer) const;

private:
    FormatContextPointer openAddress(Demuxer const& demuxer) const;
    FormatContextPointer openOnce(bool unwraps, Demuxer const& demuxer) const;
    FormatContextPointer openPipe(AVFormatContext* prepared, Demuxer const& demuxer) const;
    static int openNested(AVFormatContext* context, AVIOContext** io, char const* url, int flags,
                          AVDictionary** options);

    static Logger* log;

    QString _name; ///< For the log.
    FFmpegProxy _proxy;
    bool _isNetwork;
    QByteArray _path; ///< A local path or an address, in bytes.
    std::shared_ptr<Progress> _progress = std::make_shared<Progress>();
    mutable std::shared_ptr<PipeReader> _pipe;
};
