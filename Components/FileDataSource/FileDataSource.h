#pragma once

#include "GLMovieDataSource.h"

/// Reads a local path, a "file://" address or any address whose protocol FFmpeg opens by itself.
///
/// Opening runs on a thread of its own. An address of the network is confined to network protocols, playlists
/// included, with TLS certificates verified; the end of a live one is a loss, not an end.
class FileDataSource : public GLMovieDataSource
{
    Q_OBJECT

public:
    explicit FileDataSource(QString const& path, QObject* parent = nullptr);
    ~FileDataSource() override;

    void open() override;
    /// Returns within 100 ms in any state; an opening that cannot be interrupted, such as a name look-up, ends by
    /// itself later, without effect.
    void close() override;
    void start() override;
    void stop() override;
    int readFrame(AVPacket* packet) override;
    bool isSeekable() const override { return !_isLive && GLMovieDataSource::isSeekable(); }

private:
    class FileDataSourceThread;

    void onOpenFinished();

    static Logger* log;

    bool const _isNetwork; ///< Set by the constructor: the path is an address of another machine.
    bool _isLive = false;  ///< A network stream without a known length. Set before the reader starts.
    std::unique_ptr<FileDataSourceThread> _thread; ///< Kept while open: the context's interrupt callback asks it.
};
