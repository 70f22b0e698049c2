#pragma once

#include "GLMovieDataSource.h"

extern "C" {
#include <libavcodec/codec_id.h>
}

#include <QByteArray>
#include <QList>

#include <atomic>
#include <mutex>

/// A data source whose packets a test writes: pictures of 16x16, and PCM sound.
class ScriptedMovieSource : public GLMovieDataSource
{
    Q_OBJECT

public:
    struct Packet {
        bool isVideo = true;
        double seconds = 0.0;
        bool isKey = true;
        bool isEmpty = false;
    };

    static constexpr int side = 16;
    static constexpr int sampleRate = 48000;

    ScriptedMovieSource();

    /// Raw pictures, which decode to themselves; or AV_CODEC_ID_ZMBV, whose pictures build on the one before unless
    /// they are key frames.
    void addVideo(int codecId = AV_CODEC_ID_RAWVIDEO);
    /// A PCM codec (AV_CODEC_ID_PCM_...), and channels.
    void addAudio(int codecId, int channels);

    /// Pictures, 40 ms apart, and sound, 20 ms a packet, for so many seconds.
    void scriptClip(double seconds, bool video, bool audio);
    void append(Packet const& packet);

    /// At the end of the script, readFrame() blocks until interrupted instead of telling the end.
    void setLive(bool live) { _live = live; }
    /// The end of the script is a loss.
    void setLost(bool lost) { _lost = lost; }
    void setSeekable(bool seekable) { _seekable = seekable; }
    int framesServed() const { return _next; }

    void open() override { emit opened(this); }
    void close() override {}
    void start() override { GLMovieDataSource::start(); }
    void stop() override { GLMovieDataSource::stop(); }
    int readFrame(AVPacket* packet) override;
    int seekFrame(AVStream* stream, long long timestamp, int flags) override;
    bool isSeekable() const override { return _seekable; }

protected:
    void onOpeningEnded(bool) override {}

private:
    void setFormatContext(FormatContextPointer context);
    QByteArray payload(Packet const& packet) const;

    FormatContextPointer _formatContext;
    int _videoIndex = -1;
    int _audioIndex = -1;
    QList<Packet> _script;
    std::atomic<int> _next{0};
    std::atomic<bool> _live{false};
    std::atomic<bool> _lost{false};
    std::atomic<bool> _seekable{true};
};
