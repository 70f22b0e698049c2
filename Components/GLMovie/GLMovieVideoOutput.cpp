#include "GLMovieVideoOutput.h"

#include "GLMovie.h"
#include "GLMovieAudioSource.h"
#include "GLMovieClock.h"
#include "GLMoviePacketQueue.h"
#include "GLMovieRequests.h"
#include "GLMovieTexture.h"
#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/time.h>
}

#include <algorithm>

Logger* GLMovieVideoOutput::log = LoggerManager::logger();

namespace
{

constexpr double tooLateSeconds = 5.0;  // A picture later than this is not worth decoding ...
constexpr double longestStep = 15.0;    // Seconds; ... but for slides, up to so many seconds apart.
constexpr double showTolerance = 0.001; // Seconds that rounding may take from a place that was sought.
constexpr double skipMargin = 1.0;      // Seconds; reordered pictures may be shown this much after their packet.
constexpr double shortestWait = 1000.0; // µs
constexpr double longestWait = 10000.0; // µs; sound may start, stop or jump meanwhile.
constexpr int keyframeImageFormat = 5;  // Blue, green, red and alpha in the receiver's image class.

} // namespace

GLMovieVideoOutput::GLMovieVideoOutput(GLMovieContext const& context, AVStream* stream, Options const& options)
    : _context(context), _stream(stream), _options(options)
{
}

GLMovieVideoOutput::~GLMovieVideoOutput() = default;

int GLMovieVideoOutput::openVideoStream()
{
    AVCodecID const id = _stream->codecpar->codec_id;
    LOG_INFO("Searching for a decoder for videoCodec id = %d", static_cast<int>(id));
    if (!avcodec_find_decoder(id)) {
        LOG_ERROR("Could not locate a video decoder. Cannot play");
        return GLMovie::NoVideoDecoder;
    }
    if (openCodec() < 0) {
        LOG_ERROR("Could not open video codec %s. Cannot play", avcodec_get_name(id));
        return GLMovie::VideoCodecFailed;
    }
    _frame.reset(av_frame_alloc());
    if (!_frame || !_target.open(_codec->pix_fmt, _options.useHardwareColourConversion)) {
        LOG_ERROR("Failed avcodec_alloc_frame. Cannot play");
        return GLMovie::NoFrame;
    }
    LOG_INFO("Opened video codec %s.", _codec->codec->name);
    return GLMovie::NoError;
}

int GLMovieVideoOutput::openCodec()
{
    AVCodec const* const codec = avcodec_find_decoder(_stream->codecpar->codec_id);
    _codec.reset(avcodec_alloc_context3(codec));
    if (!_codec)
        return AVERROR(ENOMEM);
    if (int const result = avcodec_parameters_to_context(_codec.get(), _stream->codecpar); result < 0)
        return result;
    _codec->pkt_timebase = _stream->time_base;
    _codec->thread_count = 0; // As many as there are cores.
    // Whole pictures in parallel come later by as many. Slides, so few that no rate was found, need no speed.
    AVRational const rate = _stream->avg_frame_rate;
    if (rate.num <= rate.den)
        _codec->thread_type = FF_THREAD_SLICE;
    return avcodec_open2(_codec.get(), codec, nullptr);
}

QString GLMovieVideoOutput::name() const
{
    return QString::fromLatin1(_codec->codec->name);
}

bool GLMovieVideoOutput::isStill() const
{
    return (_stream->disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
}

void GLMovieVideoOutput::flush(std::optional<double> showFrom)
{
    avcodec_flush_buffers(_codec.get());
    _codec->skip_frame = AVDISCARD_DEFAULT;
    _deinterlacer.flush();
    _newestPacket.reset();
    _step = _stepBefore = 0.0;
    _showFrom = showFrom;
    _dropUntilKeyframe = showFrom.has_value();
    _passedKeyframe = false;
}

void GLMovieVideoOutput::releaseTexture()
{
    _seenKeyframe = false;
    _target.release();
}

void GLMovieVideoOutput::handleVideoPacket(AVPacket const* packet)
{
    if (packet && packet->size == 0 && packet->side_data_elems == 0)
        return; // To the decoder it would be the end.
    if (packet && checkIfPacketNeedsDropping(*packet))
        return;
    if (packet)
        skipWhatIsNotShown(*packet);
    // A damaged packet is no reason to end a film: the next one may be whole.
    if (avcodec_send_packet(_codec.get(), packet) < 0 && packet)
        LOG_DEBUG("A video packet could not be decoded");
    auto const present = [this](AVFrame* frame, std::optional<double> seconds) { presentPicture(frame, seconds); };
    while (!_context.requests.watchersMustEnd() && avcodec_receive_frame(_codec.get(), _frame.get()) >= 0) {
        if (!_options.deinterlace)
            _frame->interlaced_frame = 0;
        _deinterlacer.deinterlace(_frame.get(), _stream->time_base, present);
        av_frame_unref(_frame.get());
    }
    if (!packet)
        _deinterlacer.drain(present);
}

std::optional<double> GLMovieVideoOutput::packetSeconds(AVPacket const& packet) const
{
    qint64 const timestamp = packet.pts != AV_NOPTS_VALUE ? packet.pts : packet.dts;
    if (timestamp == AV_NOPTS_VALUE)
        return {};
    return static_cast<double>(timestamp) * av_q2d(_stream->time_base);
}

bool GLMovieVideoOutput::checkIfPacketNeedsDropping(AVPacket const& packet)
{
    GLMovieClock& clock = _context.clock;
    std::optional<double> const seconds = packetSeconds(packet);
    if (seconds)
        noteStep(*seconds);
    if (clock.waitingForFirstVideo() || !seconds)
        return false;
    std::optional<double> const late = clock.videoLateness(*seconds, _context.source.audioTime());
    if (!late || *late <= lateEnough())
        return false;
    if (!clock.syncToAudio() && _context.videoQueue.length() == 0) {
        // Dropping catches up with what is at hand; after a silence there is nothing, and nobody to catch up with.
        clock.restartVideo(*seconds);
        return false;
    }
    _lastVideoSeconds = *seconds;
    clock.videoDropped(*seconds);
    _counter.countDropped();
    _dropUntilKeyframe = clock.syncToAudio();
    LOG_INFO("Dropped video packet with pts %lf seconds as it was %lf seconds later than the audio clock",
             clock.videoMovieTime(*seconds), *late);
    return true;
}

void GLMovieVideoOutput::noteStep(double seconds)
{
    if (_newestPacket && seconds > *_newestPacket) {
        _stepBefore = _step;
        _step = seconds - *_newestPacket;
    }
    _newestPacket = seconds;
}

double GLMovieVideoOutput::lateEnough() const
{
    // In a transport stream a picture ends where the next one begins, for the demuxer and then for the parser: it
    // comes by up to twice as much too late as they are apart. One long step is a gap.
    double const step = _stepBefore > 0.0 ? std::min(_step, _stepBefore) : _step;
    return tooLateSeconds + 2.0 * std::min(step, longestStep);
}

void GLMovieVideoOutput::skipWhatIsNotShown(AVPacket const& packet)
{
    std::optional<double> const seconds = packetSeconds(packet);
    // On the way to a place that was sought, only what other pictures need is decoded.
    bool const skip = _showFrom && seconds && *seconds < *_showFrom - skipMargin;
    _codec->skip_frame = skip ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
}

void GLMovieVideoOutput::presentPicture(AVFrame const* frame, std::optional<double> seconds)
{
    GLMovieClock& clock = _context.clock;
    if (_context.requests.watchersMustEnd())
        return;
    if (isStill())
        return showStill(frame);
    if (clock.takeSoundJump())
        _dropUntilKeyframe = false;
    if (!isToBeShown(frame, seconds))
        return;
    if (clock.waitingForFirstVideo() && !beginVideo(seconds, frame->best_effort_timestamp))
        return;
    double const due = seconds.value_or(_lastVideoSeconds);
    waitForPresentationTime(due);
    if (_context.requests.watchersMustEnd())
        return;

    qint64 const begin = av_gettime_relative();
    bool const isKeyFrame = frame->key_frame != 0;
    bool const opensPicture = _passedKeyframe || isKeyFrame || _codec->codec_id == AV_CODEC_ID_CINEPAK;
    if (opensPicture && !_seenKeyframe && !showKeyFrame(due))
        return;
    if (_seenKeyframe) {
        updateTexture(frame);
        std::optional<double> const late = clock.videoLateness(due, _context.source.audioTime());
        _counter.countShown(clock.syncToAudio(), late.value_or(0.0));
    }
    _frameDelay = static_cast<double>(av_gettime_relative() - begin) / 1000000.0;
    _lastVideoSeconds = due;
    clock.videoShown(due);
    if (!clock.syncToAudio() && !_context.requests.isPaused())
        emit _context.movie.movieTimeUpdated(clock.videoMovieTime(due));
}

void GLMovieVideoOutput::showStill(AVFrame const* frame)
{
    if (!_seenKeyframe && !showKeyFrame(0.0))
        return;
    updateTexture(frame);
}

bool GLMovieVideoOutput::isToBeShown(AVFrame const* frame, std::optional<double> seconds)
{
    if (frame->key_frame != 0)
        _dropUntilKeyframe = false;
    if (_dropUntilKeyframe) {
        if (!_showFrom)
            _counter.countDropped();
        return false;
    }
    if (!_showFrom)
        return true;
    if (seconds && *seconds < *_showFrom - showTolerance) {
        _passedKeyframe = _passedKeyframe || frame->key_frame != 0;
        return false;
    }
    _showFrom.reset();
    return true;
}

bool GLMovieVideoOutput::beginVideo(std::optional<double> seconds, qint64 timestamp)
{
    if (!seconds)
        return false;
    LOG_DEBUG("First video frame packet pts %lld %lf seconds", static_cast<long long>(timestamp), *seconds);
    _context.clock.beginVideo(*seconds);
    emit _context.movie.firstVideoPacketReceived();
    return true;
}

void GLMovieVideoOutput::waitForPresentationTime(double seconds)
{
    GLMovieClock& clock = _context.clock;
    GLMovieRequests& requests = _context.requests;
    while (!requests.watchersMustEnd()) {
        GLMovieClock::Due const due = clock.videoDue(seconds, _context.source.audioTime());
        if (due.jumped) {
            _seenKeyframe = false;
            _dropUntilKeyframe = false;
        }
        double const wait = due.wait / clock.rate() - _frameDelay;
        bool const paused = requests.isPaused();
        if (wait <= 0.0 && !paused)
            break;
        requests.pauseWatcher(
            static_cast<qint64>(paused ? longestWait : std::clamp(wait * 1000000.0, shortestWait, longestWait)));
    }
}

bool GLMovieVideoOutput::showKeyFrame(double seconds)
{
    LOG_INFO("Received first video keyframe packet pts %lf seconds", _context.clock.videoMovieTime(seconds));
    bool const isNew = !texture();
    if (int const code = _target.allocateTexture(_codec.get()); code != GLMovie::NoError) {
        _context.requests.requestStop();
        emit _context.movie.error(&_context.movie, code);
        return false;
    }
    if (isNew)
        QObject::connect(texture(), &GLMovieTexture::updated, &_context.movie, &GLMovie::pictureUpdated,
                         Qt::DirectConnection);
    _seenKeyframe = true;
    GLMovieVideoTarget::Shown const now = shown();
    emit _context.movie.firstKeyFrameReceived(now.width, now.height);
    return true;
}

double GLMovieVideoOutput::aspectRatioOf(AVFrame const* frame) const
{
    AVRational sample = _stream->sample_aspect_ratio;
    if (sample.num <= 0)
        sample = frame->sample_aspect_ratio;
    double const stretch = sample.num > 0 && sample.den > 0 ? av_q2d(sample) : 1.0;
    return stretch * frame->width / frame->height;
}

void GLMovieVideoOutput::updateTexture(AVFrame const* frame)
{
    _target.update(frame, aspectRatioOf(frame));
    if (frame->key_frame != 0 && _options.emitKeyframes) {
        GLMovieVideoTarget::Shown const now = shown();
        emit _context.movie.keyframeReceived(texture()->image(), now.width, now.height, keyframeImageFormat);
    }
}
