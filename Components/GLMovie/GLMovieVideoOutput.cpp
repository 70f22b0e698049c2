#include "GLMovieVideoOutput.h"

#include "GLARBFragmentProgram.h"
#include "GLARBMultiTexture.h"
#include "GLARBShaderObjects.h"
#include "GLMovie.h"
#include "GLMovieAudioSource.h"
#include "GLMovieClock.h"
#include "GLMovieRequests.h"
#include "GLMovieTexture.h"
#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
#include <libavutil/time.h>
#include <libswscale/swscale.h>
}

#include <algorithm>

Logger* GLMovieVideoOutput::log = LoggerManager::logger();

namespace
{

constexpr double tooLateSeconds = 5.0;  // A picture later than this is not worth decoding.
constexpr double showTolerance = 0.001; // Seconds that rounding may take from a place that was sought.
constexpr double skipMargin = 1.0;      // Seconds; reordered pictures may be shown this much after their packet.
constexpr double shortestWait = 1000.0; // µs
constexpr double longestWait = 10000.0; // µs; sound may start, stop or jump meanwhile.
constexpr int keyframeImageFormat = 5;  // Blue, green, red and alpha in the receiver's image class.

bool isRgb(AVPixelFormat format)
{
    AVPixFmtDescriptor const* const descriptor = av_pix_fmt_desc_get(format);
    return descriptor && (descriptor->flags & AV_PIX_FMT_FLAG_RGB) != 0;
}

bool hasFullChroma(AVPixelFormat format)
{
    AVPixFmtDescriptor const* const descriptor = av_pix_fmt_desc_get(format);
    return descriptor && descriptor->nb_components >= 3 && descriptor->log2_chroma_w == 0 &&
           descriptor->log2_chroma_h == 0;
}

} // namespace

void GLMovieVideoOutput::CodecContextDeleter::operator()(AVCodecContext* context) const
{
    avcodec_free_context(&context);
}

void GLMovieVideoOutput::FrameDeleter::operator()(AVFrame* frame) const
{
    av_frame_free(&frame);
}

void GLMovieVideoOutput::SwsDeleter::operator()(SwsContext* context) const
{
    sws_freeContext(context);
}

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
    _outputFrame.reset(av_frame_alloc());
    if (!_frame || !_outputFrame) {
        LOG_ERROR("Failed avcodec_alloc_frame. Cannot play");
        return GLMovie::NoFrame;
    }
    chooseColourConversion();
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
    return avcodec_open2(_codec.get(), codec, nullptr);
}

void GLMovieVideoOutput::chooseColourConversion()
{
    bool const programs =
        GLARBFragmentProgram::instance()->isSupported() || GLARBShaderObjects::instance()->isSupported();
    bool const multitexturing = GLARBMultiTexture::instance()->isSupported();
    if (!programs)
        LOG_INFO("This system does not support fragment programs.");
    if (!multitexturing)
        LOG_INFO("This system does not support multitexturing.");

    if (!programs || !multitexturing || !_options.useHardwareColourConversion) {
        LOG_INFO("Switching to software YUV to RGB conversion.");
        _outputPixelFormat = AV_PIX_FMT_RGB24;
        return;
    }
    LOG_INFO("Switching to hardware YUV to RGB conversion.");
    if (isRgb(_codec->pix_fmt))
        _outputPixelFormat = AV_PIX_FMT_RGB24; // There is nothing to convert.
    else
        _outputPixelFormat = hasFullChroma(_codec->pix_fmt) ? AV_PIX_FMT_YUV444P : AV_PIX_FMT_YUV420P;
}

QString GLMovieVideoOutput::name() const
{
    return QString::fromLatin1(_codec->codec->name);
}

GLMovieTexture* GLMovieVideoOutput::texture() const
{
    std::lock_guard const lock(_shownMutex);
    return _textureAllocated ? _texture.get() : nullptr;
}

GLMovieVideoOutput::Shown GLMovieVideoOutput::shown() const
{
    std::lock_guard const lock(_shownMutex);
    return _shown;
}

void GLMovieVideoOutput::flush(std::optional<double> showFrom)
{
    avcodec_flush_buffers(_codec.get());
    _codec->skip_frame = AVDISCARD_DEFAULT;
    _deinterlacer.flush();
    _showFrom = showFrom;
    _dropUntilKeyframe = showFrom.has_value();
    _passedKeyframe = false;
}

void GLMovieVideoOutput::releaseTexture()
{
    _seenKeyframe = false;
    std::lock_guard const lock(_shownMutex);
    _texture.reset();
    _textureAllocated = false;
    _shown = {};
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
    if (clock.waitingForFirstVideo() || !seconds)
        return false;
    std::optional<double> const late = clock.videoLateness(*seconds, _context.source.audioTime());
    if (!late || *late <= tooLateSeconds)
        return false;
    _lastVideoSeconds = *seconds;
    clock.videoDropped(*seconds);
    _dropUntilKeyframe = clock.syncToAudio();
    LOG_INFO("Dropped video packet with pts %lf seconds as it was %lf seconds later than the audio clock",
             clock.videoMovieTime(*seconds), *late);
    return true;
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
    if (_context.requests.watchersMustEnd() || !isToBeShown(frame, seconds))
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
    if (_seenKeyframe)
        updateTexture(frame, isKeyFrame);
    _frameDelay = static_cast<double>(av_gettime_relative() - begin) / 1000000.0;
    _lastVideoSeconds = due;
    clock.videoShown(due);
    if (!clock.syncToAudio() && !_context.requests.isPaused())
        emit _context.movie.movieTimeUpdated(clock.videoMovieTime(due));
}

bool GLMovieVideoOutput::isToBeShown(AVFrame const* frame, std::optional<double> seconds)
{
    if (frame->key_frame != 0)
        _dropUntilKeyframe = false;
    if (_dropUntilKeyframe)
        return false;
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
    if (int const code = allocateTexture(); code != GLMovie::NoError) {
        _context.requests.requestStop();
        emit _context.movie.error(&_context.movie, code);
        return false;
    }
    _seenKeyframe = true;
    Shown const now = shown();
    emit _context.movie.firstKeyFrameReceived(now.width, now.height);
    return true;
}

int GLMovieVideoOutput::allocateTexture()
{
    if (texture())
        return GLMovie::NoError;
    int const width = _codec->width;
    int const height = _codec->height;
    if (av_image_get_buffer_size(_outputPixelFormat, width, height, 1) < 0) {
        LOG_ERROR("avpicture_get_size was -1. Cannot play");
        return GLMovie::NoPictureSize;
    }
    av_frame_unref(_outputFrame.get());
    _outputFrame->format = _outputPixelFormat;
    _outputFrame->width = width;
    _outputFrame->height = height;
    if (av_frame_get_buffer(_outputFrame.get(), 0) < 0) {
        LOG_ERROR("Failed allocating buffer. Cannot play");
        return GLMovie::NoPictureBuffer;
    }
    std::unique_ptr<GLMovieTexture> made(new (std::nothrow) GLMovieTexture);
    if (!made) {
        LOG_ERROR("Failed allocating movie texture. Cannot play");
        return GLMovie::NoTexture;
    }
    if (made->create(_codec.get(), _outputPixelFormat) != 0) {
        LOG_ERROR("Failed creating movie texture. Cannot play");
        return GLMovie::TextureFailed;
    }
    QObject::connect(made.get(), &GLMovieTexture::updated, &_context.movie, &GLMovie::pictureUpdated,
                     Qt::DirectConnection);
    LOG_DEBUG("Allocated video texture. Size = %d x %d", width, height);
    std::lock_guard const lock(_shownMutex);
    _texture = std::move(made);
    _shown = {width, height, 0.0};
    _textureAllocated = true;
    return GLMovie::NoError;
}

double GLMovieVideoOutput::aspectRatioOf(AVFrame const* frame) const
{
    AVRational sample = _stream->sample_aspect_ratio;
    if (sample.num <= 0)
        sample = frame->sample_aspect_ratio;
    double const stretch = sample.num > 0 && sample.den > 0 ? av_q2d(sample) : 1.0;
    return stretch * frame->width / frame->height;
}

void GLMovieVideoOutput::updateTexture(AVFrame const* frame, bool isKeyFrame)
{
    AVFrame const* const picture = pictureInOutputFormat(frame);
    if (!picture)
        return;
    {
        std::lock_guard const lock(_shownMutex);
        _shown.aspectRatio = aspectRatioOf(frame);
    }
    _texture->update(picture, isKeyFrame);
    if (isKeyFrame && _options.emitKeyframes)
        emit _context.movie.keyframeReceived(_texture->image(), picture->width, picture->height, keyframeImageFormat);
}

AVFrame const* GLMovieVideoOutput::pictureInOutputFormat(AVFrame const* frame)
{
    AVFrame* const output = _outputFrame.get();
    // Scaling a picture to what it is already would only copy it.
    if (GLMovieColourSpace::plainFormat(static_cast<AVPixelFormat>(frame->format)) == output->format &&
        frame->width == output->width && frame->height == output->height)
        return frame;
    // The source may change its size or format at any picture; the texture keeps the size of the first one.
    AVPixelFormat const format = GLMovieColourSpace::plainFormat(static_cast<AVPixelFormat>(frame->format));
    SwsContext* const old = _swsContext.release();
    _swsContext.reset(sws_getCachedContext(old, frame->width, frame->height, format, output->width, output->height,
                                           _outputPixelFormat, SWS_BILINEAR, nullptr, nullptr, nullptr));
    if (!_swsContext)
        return nullptr;
    GLMovieColourSpace::apply(_swsContext.get(), frame, output);
    sws_scale(_swsContext.get(), frame->data, frame->linesize, 0, frame->height, output->data, output->linesize);
    return output;
}
