#include "GLMovie.h"

#include "GLMovieAudioOutput.h"
#include "GLMovieDataSource.h"
#include "GLMoviePacketQueue.h"
#include "GLMoviePacketQueueWatcher.h"
#include "GLMovieVideoOutput.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <utility>

Logger* GLMovie::log = LoggerManager::logger();

namespace
{
constexpr int maximumAudioPackets = 32;
constexpr int maximumVideoPackets = 100; // Without sound; with it, the sound paces the reader.
} // namespace

GLMovie::GLMovie(GLMovieDataSource* dataSource, bool useHardwareColourConversion, QObject* parent)
    : QThread(parent), _dataSource(dataSource),
      _requests([dataSource](bool interrupted) { dataSource->setInterrupted(interrupted); })
{
    _options.useHardwareColourConversion = useHardwareColourConversion;
    connect(_dataSource, &GLMovieDataSource::opened, this, &GLMovie::onDataSourceOpened);
    connect(_dataSource, &GLMovieDataSource::closed, this, &GLMovie::onDataSourceClosed);
    // A film that has ended is not silent: its watchdog rests. A loss keeps its words.
    connect(this, &GLMovie::completed, this, [this] {
        if (!_requests.isLost())
            _dataSource->stop();
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
    if (!_videoStream && !_audioStream)
        return NoStreams;
    _videoQueue = std::make_unique<GLMoviePacketQueue>(maximumVideoPackets);
    _audioQueue = std::make_unique<GLMoviePacketQueue>(maximumAudioPackets);
    if (int const code = openStreams(); code != NoError) {
        freeResources();
        return code;
    }
    if (!_audioStream)
        LOG_INFO("No audio stream was opened so we will not sync with the audio");
    if (!_options.renderAudio)
        LOG_INFO("We are not rendering the audio will not sync with the audio");

    _videoWatcher = std::make_unique<GLMovieVideoPacketQueueWatcher>(*this, *_videoQueue);
    _audioWatcher = std::make_unique<GLMovieAudioPacketQueueWatcher>(*this, *_audioQueue);
    _opened = true;
    if (_options.dumpVideo || _options.dumpAudio)
        _dump.openPacketDumpFile(_options.dumpDirectory);
    LOG_INFO("Opened %s", qPrintable(_url));
    return NoError;
}

int GLMovie::openStreams()
{
    if (_videoStream) {
        int const code = openVideoStream();
        if (code != NoError && !_audioStream)
            return code;
        if (code != NoError)
            _videoStream = nullptr;
    }
    if (_audioStream) {
        int const code = openAudioStream();
        if (code != NoError && !_videoStream)
            return code;
        if (code != NoError) {
            LOG_INFO("Audio stream failed but video stream is ok so ignoring audio stream and playing video only");
            _audioStream = nullptr;
        }
    }
    return NoError;
}

int GLMovie::openVideoStream()
{
    GLMovieContext const context{*this, _clock, _requests, _audio, *_videoQueue, *_audioQueue};
    GLMovieVideoOutput::Options const options{_options.useHardwareColourConversion, _options.deinterlace,
                                              _options.emitKeyframes};
    _videoOutput = std::make_unique<GLMovieVideoOutput>(context, _videoStream, options);
    _videoOutput->setWatched(_options.watched);
    int const code = _videoOutput->openVideoStream();
    if (code != NoError)
        _videoOutput.reset();
    return code;
}

int GLMovie::openAudioStream()
{
    GLMovieContext const context{*this, _clock, _requests, _audio, *_videoQueue, *_audioQueue};
    _audioOutput = std::make_unique<GLMovieAudioOutput>(context, _audioStream, _options.renderAudio);
    int const code = _audioOutput->openAudioStream();
    if (code != NoError)
        _audioOutput.reset();
    return code;
}

int GLMovie::play()
{
    if (!_opened || isRunning())
        return NoError;
    LOG_INFO("Playing %s", qPrintable(_url));
    _clock.reset(_videoOutput && !_videoOutput->isStill(), _audioStream && _options.renderAudio);
    _counter.reset();
    _repetition.clear();
    _requests.begin();
    _sourceLost = false;
    startWatchers();
    _dataSource->start();
    start(QThread::InheritPriority);
    return NoError;
}

void GLMovie::stop(bool notify)
{
    if (!_opened)
        return;
    LOG_INFO("Stopping %s", qPrintable(_url));
    _requests.requestStop();
    _videoQueue->wake();
    _audioQueue->wake();
    wait();
    _videoWatcher->wait();
    _audioWatcher->wait();
    _requests.endReader(false); // From here on, all that the threads did is seen here.
    _dataSource->setInterrupted(false);
    if (!_sourceGoesOn)
        _dataSource->stop();
    clearQueues();
    _audio.stop();
    flushOutputs({});
    if (_videoOutput)
        _videoOutput->releaseTexture();
    if (notify)
        emit stopped(this);
    LOG_INFO("Stopped %s", qPrintable(_url));
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
    _videoOutput.reset();
    _audioOutput.reset();
    _videoQueue.reset();
    _audioQueue.reset();
    _audio.close();
    _dump.close();
    _videoStream = nullptr;
    _audioStream = nullptr;
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
