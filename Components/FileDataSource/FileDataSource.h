#pragma once

#include "FileOpening.h"
#include "GLMovieDataSource.h"
#include "LiveEntry.h"
#include "StreamReopener.h"

#include <QNetworkProxy>

/// Reads a local path, a "file://" address or any address whose protocol FFmpeg opens by itself.
///
/// The end of a live address of the network, or its silence, is a loss, not an end: the source opens anew by itself,
/// as StreamReopener says, while readFrame() waits and stateChanged() tells the viewer. When it is open again, what
/// was open goes with closed(), and opened() follows, and it begins with a key frame. Only what cannot be opened, or
/// not any more, is an error. A broadcast of which the server makes a film when it is over has ended with that, and
/// so has a film without a length that the server sends anew, which shows when it ends a second time as it did
/// before.
class FileDataSource : public GLMovieDataSource
{
    Q_OBJECT

public:
    static constexpr int silenceLimit = 5000;      ///< ms without a packet, which are a loss where it is live ...
    static constexpr int listSilenceLimit = 12000; ///< ... likewise, where each file has to be finished first.

    /// The ms without a packet that are a loss of a live stream, by what its pictures and sound promise.
    static int silenceLimitOf(StreamInfo const& streams);

    explicit FileDataSource(QString const& path, QObject* parent = nullptr);
    FileDataSource(QString const& path, StreamReopener::Means const& means, QObject* parent = nullptr);
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
    bool goesOnWith(StreamInfo const& opened) override;

private:
    void onAttemptDue();
    void onGivenUp();
    void tellState();
    bool isAnswered() const;
    int readWhatIsPlayed(AVPacket* packet);
    int waitForReopening(AVPacket* packet, bool isEnd);
    void end();

    static Logger* log;

    bool const _isNetwork; ///< The path is an address of another machine.
    bool const _goesThere; ///< It is a server's, which may be asked again.
    QNetworkProxy _proxy{QNetworkProxy::NoProxy};
    StreamReopener _reopener;
    std::shared_ptr<FileOpening::Progress const> _progress; ///< Of the last attempt.
    // Set before the reader starts.
    bool _isLive = false; ///< A network stream without a length.
    // Then the reader's.
    LiveEntry _entry;
    std::size_t _newest = 0;       ///< Tells the newest packet of what is live from others.
    std::size_t _newestAtLoss = 0; ///< That of the last loss.
};
