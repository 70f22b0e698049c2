#pragma once

#include "GLMovieDataSource.h"

#include <QNetworkProxy>

/// Reads a local path, a "file://" address or any address whose protocol FFmpeg opens by itself. The end of a live
/// address of the network is a loss, not an end.
class FileDataSource : public GLMovieDataSource
{
    Q_OBJECT

public:
    explicit FileDataSource(QString const& path, QObject* parent = nullptr);
    ~FileDataSource() override;

    /// For connections that FFmpeg makes, from the next opening on; none by default. The DefaultProxy is the
    /// system's.
    void setProxy(QNetworkProxy const& proxy) { _proxy = proxy; }

    void open() override;
    void close() override;
    void start() override;
    void stop() override;
    int readFrame(AVPacket* packet) override;
    bool isSeekable() const override { return !_isLive && GLMovieDataSource::isSeekable(); }

protected:
    void onOpeningEnded(bool success) override;

private:
    static Logger* log;

    bool const _isNetwork; ///< Set by the constructor: the path is an address of another machine.
    QNetworkProxy _proxy{QNetworkProxy::NoProxy};
    bool _isLive = false; ///< A network stream without a known length. Set before the reader starts.
};
