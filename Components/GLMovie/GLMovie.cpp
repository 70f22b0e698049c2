#include "GLMovie.h"

#include "GLARBFragmentProgram.h"
#include "GLARBMultiTexture.h"
#include "GLARBShaderObjects.h"
#include "GLMovieDataSource.h"
#include "GLMoviePacketQueue.h"
#include "GLMoviePacketQueueWatcher.h"
#include "GLMovieTexture.h"
#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/time.h>
#include <libswresample/swresample.h>
#include <libswscale/swscale.h>
}

Logger* GLMovie::log = LoggerManager::logger();

void GLMovie::CodecContextDeleter::operator()(AVCodecContext* context) const
{
    avcodec_free_context(&context);
}

void GLMovie::FrameDeleter::operator()(AVFrame* frame) const
{
    av_frame_free(&frame);
}

void GLMovie::SwsDeleter::operator()(SwsContext* context) const
{
    sws_freeContext(context);
}

void GLMovie::SwrDeleter::operator()(SwrContext* context) const
{
    swr_free(&context);
}

GLMovie::GLMovie(GLMovieDataSource* dataSource, bool useHardwareColourConversion, QObject* parent)
    : QThread(parent), _dataSource(dataSource), _useHardwareColourConversion(useHardwareColourConversion)
{
    connect(_dataSource, &GLMovieDataSource::opened, this, &GLMovie::onDataSourceOpened);
    connect(_dataSource, &GLMovieDataSource::closed, this, &GLMovie::onDataSourceClosed);
    // A film that has ended is not silent: its watchdog rests. A loss keeps its words.
    connect(this, &GLMovie::completed, _dataSource, [this, source = _dataSource] {
        if (!_lost)
            source->stop();
    });
}

GLMovie::~GLMovie()
{
    disconnect(_dataSource, nullptr, this, nullptr);
    close(false);
}

void GLMovie::onDataSourceOpened(GLMovieDataSource*)
{
    int const code = open();
    if (code != NoError) {
        emit error(this, code);
        return;
    }
    emit opened(this);
    play();
}

void GLMovie::onDataSourceClosed(GLMovieDataSource*)
{
    // The source goes on by itself and opens anew; stopping it would end that.
    _sourceGoesOn = true;
    close(true);
    _sourceGoesOn = false;
}

int GLMovie::open()
{
    _url = _dataSource->uri();
    _videoStream = _dataSource->videoStream();
    _audioStream = _dataSource->audioStream();
    _syncToAudio = true;
    if (!_videoStream && !_audioStream)
        return NoStreams;

    if (_videoStream) {
        int const code = openVideoStream();
        if (code != NoError && !_audioStream) {
            close(true);
            freeResources();
            return code;
        }
        if (code != NoError)
            _videoStream = nullptr;
    }
    if (_audioStream) {
        int const code = openAudioStream();
        if (code != NoError && !_videoStream) {
            close(true);
            freeResources();
            return code;
        }
        if (code != NoError) {
            LOG_INFO("Audio stream failed but video stream is ok so ignoring audio stream and playing video only");
            _audioStream = nullptr;
            _audio.close();
        }
    }
    if (!_audioStream) {
        LOG_INFO("No audio stream was opened so we will not sync with the audio");
        _syncToAudio = false;
    }
    if (!_renderAudio) {
        LOG_INFO("We are not rendering the audio will not sync with the audio");
        _syncToAudio = false;
    }

    _videoQueue = std::make_unique<GLMoviePacketQueue>();
    _audioQueue = std::make_unique<GLMoviePacketQueue>();
    _videoWatcher = std::make_unique<GLMovieVideoPacketQueueWatcher>(*this, *_videoQueue);
    _audioWatcher = std::make_unique<GLMovieAudioPacketQueueWatcher>(*this, *_audioQueue);
    _opened = true;
    if (_dumpVideo || _dumpAudio)
        _dump.openPacketDumpFile(_dumpDirectory);
    LOG_INFO("Opened %s", qPrintable(_url));
    return NoError;
}

GLMovie::CodecContext GLMovie::openCodec(AVStream const* stream, int& averror)
{
    AVCodec const* const codec = avcodec_find_decoder(stream->codecpar->codec_id);
    CodecContext context(codec ? avcodec_alloc_context3(codec) : nullptr);
    averror = context ? avcodec_parameters_to_context(context.get(), stream->codecpar) : AVERROR_DECODER_NOT_FOUND;
    if (averror < 0)
        return {};
    context->pkt_timebase = stream->time_base;
    if (codec->type == AVMEDIA_TYPE_VIDEO)
        context->thread_count = 0; // As many as there are cores.
    averror = avcodec_open2(context.get(), codec, nullptr);
    return averror < 0 ? CodecContext() : std::move(context);
}

int GLMovie::openVideoStream()
{
    AVCodecParameters const* const parameters = _videoStream->codecpar;
    LOG_INFO("Searching for a decoder for videoCodec id = %d", static_cast<int>(parameters->codec_id));
    if (!avcodec_find_decoder(parameters->codec_id)) {
        LOG_ERROR("Could not locate a video decoder. Cannot play");
        return NoVideoDecoder;
    }
    int averror = 0;
    _videoCodec = openCodec(_videoStream, averror);
    if (!_videoCodec) {
        LOG_ERROR("Could not open video codec %s. Cannot play", avcodec_get_name(parameters->codec_id));
        return VideoCodecFailed;
    }
    _frame.reset(av_frame_alloc());
    _outputFrame.reset(av_frame_alloc());
    if (!_frame || !_outputFrame) {
        LOG_ERROR("Failed avcodec_alloc_frame. Cannot play");
        return NoFrame;
    }
    chooseColourConversion();
    LOG_INFO("Opened video codec %s.", _videoCodec->codec->name);
    return NoError;
}

void GLMovie::chooseColourConversion()
{
    bool const programs =
        GLARBFragmentProgram::instance()->isSupported() || GLARBShaderObjects::instance()->isSupported();
    bool const multitexturing = GLARBMultiTexture::instance()->isSupported();
    if (!programs)
        LOG_INFO("This system does not support fragment programs.");
    if (!multitexturing)
        LOG_INFO("This system does not support multitexturing.");

    if (!programs || !multitexturing || !_useHardwareColourConversion) {
        LOG_INFO("Switching to software YUV to RGB conversion.");
        _outputPixelFormat = AV_PIX_FMT_RGB24;
        return;
    }
    LOG_INFO("Switching to hardware YUV to RGB conversion.");
    bool const fullChroma = _videoCodec->pix_fmt == AV_PIX_FMT_YUV444P || _videoCodec->pix_fmt == AV_PIX_FMT_YUVJ444P;
    _outputPixelFormat = fullChroma ? AV_PIX_FMT_YUV444P : AV_PIX_FMT_YUV420P;
}

int GLMovie::openAudioStream()
{
    AVCodecID const id = _audioStream->codecpar->codec_id;
    LOG_INFO("Searching for a decoder for audioCodec id = %d", static_cast<int>(id));
    if (!GLMovieAudioSource::isDevicePresent()) {
        LOG_INFO("No audio device present.");
        return NoAudioDevice;
    }
    if (!avcodec_find_decoder(id)) {
        LOG_ERROR("%s", qPrintable(missingAudioDecoderText(id)));
        return NoAudioDecoder;
    }
    int averror = 0;
    _audioCodec = openCodec(_audioStream, averror);
    _audioFrame.reset(av_frame_alloc());
    if (!_audioCodec || !_audioFrame) {
        LOG_ERROR("Could not open audio codec %s. Cannot play", avcodec_get_name(id));
        return AudioCodecFailed;
    }
    switch (_audio.open()) {
    case GLMovieAudioSource::OpenResult::NoBuffers:
        LOG_ERROR("Failed alGenBuffers. Cannot play");
        return NoAudioBuffers;
    case GLMovieAudioSource::OpenResult::NoSource:
        LOG_ERROR("Failed alGenSources. Cannot play");
        return NoAudioSource;
    case GLMovieAudioSource::OpenResult::Opened:
        break;
    }
    _audio.setGain(_muted ? 0.0 : _volume);
    _audio.setPitch(_speed);
    logAudioFormat();
    LOG_INFO("Opened audio codec %s.", _audioCodec->codec->name);
    return NoError;
}

QString GLMovie::missingAudioDecoderText(int codecId)
{
    switch (codecId) {
    case AV_CODEC_ID_VORBIS:
        return QStringLiteral("Could not locate an audio decoder for Vorbis. Cannot play");
    case AV_CODEC_ID_AC3:
        return QStringLiteral("Could not locate an audio decoder for AC3. Cannot play");
    case AV_CODEC_ID_AAC:
        return QStringLiteral("Could not locate an audio decoder for AAC. Cannot play");
    case AV_CODEC_ID_DTS:
        return QStringLiteral("Could not locate an audio decoder for DTS. Cannot play");
    default:
        return QStringLiteral("Could not locate an audio decoder. Cannot play");
    }
}

void GLMovie::logAudioFormat() const
{
    int const channels = _audioCodec->ch_layout.nb_channels;
    QString text = QStringLiteral("Audio format: ");
    if (channels == 1)
        text += "Mono";
    else if (channels == 2)
        text += "Stereo";
    else
        text += QString::asprintf("%d Channel", channels);
    switch (av_get_packed_sample_fmt(_audioCodec->sample_fmt)) {
    case AV_SAMPLE_FMT_U8:
        text += " unsigned 8 bit";
        break;
    case AV_SAMPLE_FMT_S16:
        text += " signed 16 bit";
        break;
    case AV_SAMPLE_FMT_S32:
        text += " signed 32 bit";
        break;
    case AV_SAMPLE_FMT_FLT:
    case AV_SAMPLE_FMT_DBL:
        text += " floating point";
        break;
    default:
        text += " unknown format";
    }
    text += QString::asprintf(" %d hz", _audioCodec->sample_rate);
    LOG_INFO("%s", qPrintable(text));
}

int GLMovie::play()
{
    if (_playing || !_opened)
        return NoError;
    LOG_INFO("Playing %s", qPrintable(_url));
    _stopRequested = false;
    _lost = false;
    _dataSource->setInterrupted(false);
    startWatchers();
    _dataSource->start();
    resetStartTime();
    _playing = true;
    start(QThread::InheritPriority);
    return NoError;
}

void GLMovie::stop(bool notify)
{
    if (!_opened)
        return;
    LOG_INFO("Stopping %s", qPrintable(_url));
    _stopRequested = true;
    _dataSource->setInterrupted(true);
    joinThreads();
    _dataSource->setInterrupted(false);
    if (!_sourceGoesOn)
        _dataSource->stop();
    _videoQueue->clear();
    _audioQueue->clear();
    _audio.stop();
    _textureAllocated = false;
    _texture.reset();
    _seenKeyframe = false;
    _playing = false;
    if (notify)
        emit stopped(this);
    LOG_INFO("Stopped %s", qPrintable(_url));
}

void GLMovie::joinThreads()
{
    wakeAll();
    wait();
    static_cast<void>(_readerEnded.load(std::memory_order_acquire));
    wakeAll();
    _videoWatcher->join();
    _audioWatcher->join();
}

void GLMovie::close(bool notify)
{
    if (!_opened || _closing)
        return;
    _closing = true;
    LOG_INFO("Closing %s", qPrintable(_url));
    stop(notify);
    _opened = false;
    freeResources();
    _closing = false;
}

void GLMovie::freeResources()
{
    _videoWatcher.reset();
    _audioWatcher.reset();
    _videoQueue.reset();
    _audioQueue.reset();
    _videoCodec.reset();
    _audioCodec.reset();
    _frame.reset();
    _outputFrame.reset();
    _audioFrame.reset();
    _swsContext.reset();
    _swrContext.reset();
    _audio.close();
    _dump.close();
    _videoStream = nullptr;
    _audioStream = nullptr;
    _width = 0;
    _height = 0;
    _audioRefusalReported = false;
    _waitingForFirstVideo = true;
    _waitingForFirstAudio = true;
    _dropUntilKeyframe = false;
    _firstVideoPts = 0.0;
    _firstAudioPts = 0.0;
    _sharesSoundsZero = false;
    _lastVideoPts = 0.0;
    _lastAudioPts = 0.0;
}

QString GLMovie::errorText(int error)
{
    switch (error) {
    case NoError:
        return {};
    case NoVideoDecoder:
        return tr("Could not locate a video decoder. Cannot play");
    case VideoCodecFailed:
        return tr("Could not open video codec. Cannot play");
    case NoAudioDevice:
        return tr("No audio device present.");
    case NoAudioDecoder:
        return tr("Could not locate an audio decoder. Cannot play");
    case AudioCodecFailed:
        return tr("Could not open audio codec. Cannot play");
    case NoStreams:
        return tr("No video or audio streams found. Cannot play");
    case UnsupportedAudioFormat:
        return tr("The audio format is not supported. Cannot play");
    case NoAudioBuffers:
    case NoAudioSource:
        return tr("Could not open sound device.");
    case TextureFailed:
        return tr("Failed creating movie texture. Cannot play");
    default:
        return tr("Not enough memory to play. Cannot play");
    }
}
