// The video watcher's side of a movie: from packets to the texture.

#include "GLMovie.h"
#include "GLMovieDataSource.h"
#include "GLMovieTexture.h"
#include "Logger.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/imgutils.h>
#include <libavutil/time.h>
#include <libswscale/swscale.h>
}

namespace
{
constexpr int keyframeImageFormat = 5; // Blue, green, red and alpha in the receiver's image class.
}

void GLMovie::handleVideoPacket(AVPacket* packet)
{
    if (checkIfPacketNeedsDropping(packet))
        return;
    // A damaged packet is no reason to end a film: the next one may be whole.
    bool const isEnd = packet->size == 0;
    if (avcodec_send_packet(_videoCodec.get(), isEnd ? nullptr : packet) < 0 && !isEnd)
        LOG_DEBUG("A video packet could not be decoded");
    while (!isStopRequested() && avcodec_receive_frame(_videoCodec.get(), _frame.get()) >= 0) {
        presentPicture();
        av_frame_unref(_frame.get());
    }
    if (isEnd)
        _videoWatcherIdle = true;
}

void GLMovie::presentPicture()
{
    if (_waitingForFirstVideo && !beginVideo())
        return;
    qint64 const timestamp = _frame->best_effort_timestamp;
    double pts = timestamp == AV_NOPTS_VALUE ? _lastVideoPts.load() : computeVideoPacketPTS(timestamp);
    bool const isKeyFrame = _frame->key_frame != 0;
    if (_dropUntilKeyframe && !isKeyFrame)
        return;
    if (isKeyFrame)
        _dropUntilKeyframe = false;
    pts = waitForPresentationTime(pts);
    if (isStopRequested())
        return;

    qint64 const begin = av_gettime_relative();
    bool const opensPicture = isKeyFrame || _videoCodec->codec_id == AV_CODEC_ID_CINEPAK;
    if (opensPicture && !_seenKeyframe && !showKeyFrame(pts))
        return;
    if (_seenKeyframe && _textureAllocated)
        updateTexture(isKeyFrame);
    _frameDelay = static_cast<double>(av_gettime_relative() - begin) / 1000000.0;
    _lastVideoPts = pts;
    if (!_syncToAudio && !_paused)
        emit movieTimeUpdated(pts);
}

bool GLMovie::beginVideo()
{
    qint64 const timestamp = _frame->best_effort_timestamp;
    if (timestamp == AV_NOPTS_VALUE)
        return false;
    double const seconds = static_cast<double>(timestamp) * av_q2d(_videoStream->time_base);
    _firstVideoPts = seconds;
    LOG_DEBUG("First video frame packet pts %lld %lf seconds", static_cast<long long>(timestamp), seconds);
    if (!_syncToAudio || _waitingForFirstAudio)
        resetStartTime();
    emit firstVideoPacketReceived();
    _waitingForFirstVideo = false;
    return true;
}

bool GLMovie::showKeyFrame(double pts)
{
    LOG_INFO("Received first video keyframe packet pts %lf seconds", pts);
    if (int const code = allocateTexture(); code != NoError) {
        _stopRequested = true;
        emit error(this, code);
        return false;
    }
    _seenKeyframe = true;
    emit firstKeyFrameReceived(_width, _height);
    return true;
}

int GLMovie::allocateTexture()
{
    if (_textureAllocated)
        return NoError;
    int const width = _videoCodec->width;
    int const height = _videoCodec->height;
    if (av_image_get_buffer_size(_outputPixelFormat, width, height, 1) < 0) {
        LOG_ERROR("avpicture_get_size was -1. Cannot play");
        return NoPictureSize;
    }
    av_frame_unref(_outputFrame.get());
    _outputFrame->format = _outputPixelFormat;
    _outputFrame->width = width;
    _outputFrame->height = height;
    if (av_frame_get_buffer(_outputFrame.get(), 0) < 0) {
        LOG_ERROR("Failed allocating buffer. Cannot play");
        return NoPictureBuffer;
    }
    _texture.reset(new (std::nothrow) GLMovieTexture);
    if (!_texture) {
        LOG_ERROR("Failed allocating movie texture. Cannot play");
        return NoTexture;
    }
    if (_texture->create(_videoCodec.get(), _outputPixelFormat) != 0) {
        LOG_ERROR("Failed creating movie texture. Cannot play");
        return TextureFailed;
    }
    connect(_texture.get(), &GLMovieTexture::updated, this, &GLMovie::pictureUpdated, Qt::DirectConnection);
    LOG_DEBUG("Allocated video texture. Size = %d x %d", width, height);
    _width = width;
    _height = height;
    _textureAllocated = true;
    return NoError;
}

void GLMovie::updateTexture(bool isKeyFrame)
{
    AVFrame const* const picture = pictureInOutputFormat();
    if (!picture)
        return;
    _texture->update(picture, isKeyFrame);
    if (isKeyFrame && _emitKeyframes)
        emit keyframeReceived(_texture->image(), _width, _height, keyframeImageFormat);
}

AVFrame const* GLMovie::pictureInOutputFormat()
{
    // Scaling a picture to what it is already would only copy it.
    if (_frame->format == _outputFrame->format && _frame->width == _outputFrame->width &&
        _frame->height == _outputFrame->height)
        return _frame.get();
    // The source may change its size or format at any picture; the texture keeps the size of the first one.
    SwsContext* const old = _swsContext.release();
    _swsContext.reset(sws_getCachedContext(
        old, _frame->width, _frame->height, static_cast<AVPixelFormat>(_frame->format), _outputFrame->width,
        _outputFrame->height, _outputPixelFormat, SWS_BILINEAR, nullptr, nullptr, nullptr));
    if (!_swsContext)
        return nullptr;
    sws_scale(_swsContext.get(), _frame->data, _frame->linesize, 0, _frame->height, _outputFrame->data,
              _outputFrame->linesize);
    return _outputFrame.get();
}
