#include "ChannelStream.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelTitle.h"
#include "FileDataSource.h"
#include "FileName.h"
#include "GLMovie.h"
#include "GLMovieShader.h"
#include "HttpFileDataSource.h"
#include "LatteDataSource.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "OpenChannels.h"

#include <QFileInfo>
#include <QUrl>

Logger* ChannelStream::log = LoggerManager::logger();

namespace
{

/// Whether an address on the web ends in one of these suffixes.
bool isOnTheWeb(Uri const& uri, QStringList const& suffixes)
{
    QString const scheme = uri.scheme().toString();
    if (scheme != "http" && scheme != "https")
        return false;
    return suffixes.contains(QFileInfo(QUrl(uri.toString()).path()).suffix().toLower());
}

/// Whether an address names a whole file to download, rather than a stream.
bool isMediaFileOnTheWeb(Uri const& uri)
{
    return isOnTheWeb(
        uri, {"mp4", "m4v", "m4a", "mov", "mkv", "webm", "avi", "wmv", "wma", "mp3", "ogg", "ogv", "flac", "wav"});
}

/// Whether an address names segments (RFC 8216, MPEG-DASH) or a transport stream, which FFmpeg fetches by itself.
bool isSegmentedOnTheWeb(Uri const& uri)
{
    return isOnTheWeb(uri, {"m3u8", "mpd", "ts"});
}

/// A title as the beginning of a file's name.
QString recordingName(QString title)
{
    constexpr qsizetype maximumBytes = 200; // The system takes 255, time and suffix included.
    for (QChar& character : title)
        if (character == '/' || character.category() == QChar::Other_Control)
            character = '_';
    while (title.toUtf8().size() > maximumBytes)
        title.chop(1);
    return title.startsWith('.') ? '_' + title : title;
}

} // namespace

ChannelStream::ChannelStream(AppData& appData, Channel* channel, StreamDescription const& description)
    : _appData(appData), _channel(channel), _description(description)
{
    connect(&_appData.settings, &AppSettings::recordChanged, this, &ChannelStream::onRecordChanged);
    connect(&_appData.settings, &AppSettings::enableVideoPostProcessingChanged, this,
            &ChannelStream::onEnableVideoPostProcessingChanged);
    connect(&_appData, &AppData::videoPostProcessingChanged, this, &ChannelStream::onVideoPostProcessingChanged);
}

ChannelStream::~ChannelStream()
{
    close();
}

void ChannelStream::open(bool forceFile)
{
    if (_renderer)
        return;
    _renderer = std::make_unique<GLMovieRenderer>();
    giveColourConversion();
    _renderer->setSmoothChroma(!_appData.videoPrograms.drawsInSoftware());
    givePostProcessing();
    _renderer->setPostProcessingEnabled(_appData.settings.enableVideoPostProcessing());
    _renderer->setDeinterlacing(_appData.settings.deinterlace());
    _renderer->setWatched(_watched);
    _renderer->setLoop(_loop);
    _renderer->setMuted(_muted);
    _renderer->setVolume(_volume);
    _renderer->setOpacity(_opacity);
    _renderer->setVideoName(ChannelTitle::shown(_channel->desc.title()));

    connect(_renderer.get(), &GLMovieRenderer::opened, this, &ChannelStream::onOpened);
    connect(_renderer.get(), &GLMovieRenderer::completed, this, &ChannelStream::onCompleted);
    connect(_renderer.get(), &GLMovieRenderer::looped, this, &ChannelStream::onLooped);
    connect(_renderer.get(), &GLMovieRenderer::movieTimeUpdated, this, &ChannelStream::onTimeUpdated);
    connect(_renderer.get(), &GLMovieRenderer::pictureUpdated, this, &ChannelStream::pictureUpdated);
    connect(_renderer.get(), &GLMovieRenderer::fadeInCompleted, this, [this] { emit fadeInComplete(this); });
    connect(_renderer.get(), &GLMovieRenderer::fadeOutCompleted, this, [this] { emit fadeOutComplete(this); });

    _dataSource = createSource(forceFile);
    connect(_dataSource.get(), &GLMovieDataSource::recordingFailed, this, &ChannelStream::onRecordingFailed);
    connect(_dataSource.get(), &GLMovieDataSource::playing, this, [this] { emit playing(this); });
    // The renderer passes on what the source says, and says what the movie cannot play.
    connect(_renderer.get(), &GLMovieRenderer::error, this,
            [this](GLMovieRenderer*, QString const& text) { onError(_dataSource.get(), text); });
    connect(_renderer.get(), &GLMovieRenderer::stateChanged, this,
            [this](GLMovieRenderer*, QString const& text) { onStateChanged(_dataSource.get(), text); });
    _renderer->open(_dataSource.get());
}

void ChannelStream::giveColourConversion()
{
    using Conversion = AppSettings::ColourConversion;
    Conversion const wanted = _appData.settings.colourConversion();
    unsigned int const fragmentProgram = wanted == Conversion::Automatic || wanted == Conversion::FragmentProgram
                                             ? _appData.videoPrograms.colourConversionFragmentProgram()
                                             : 0;
    unsigned int const shaderProgram = wanted == Conversion::Automatic || wanted == Conversion::Shader
                                           ? _appData.videoPrograms.colourConversionShader().handle()
                                           : 0;
    if (fragmentProgram != 0)
        _renderer->setColourConversionFragmentProgram(fragmentProgram);
    if (shaderProgram != 0)
        _renderer->setColourConversionShaderProgram(shaderProgram);
    _renderer->setUseHardwareColourConversion((fragmentProgram != 0 || shaderProgram != 0) &&
                                              _appData.settings.useHardwareColourConversion());
}

void ChannelStream::givePostProcessing()
{
    _renderer->clearPostProcessingShaderPrograms();
    for (GLMovieShader const* shader : _appData.postProcessingShaders())
        _renderer->addPostProcessingShaderProgram(shader->handle());
}

std::unique_ptr<GLMovieDataSource> ChannelStream::createSource(bool forceFile)
{
    StreamDescription description = _description;
    Uri const uri = _appData.streamAddress.addressOf(_description);
    description.setUri(uri);
    auto const plainFileFound = [this, opening = ++_openings] {
        if (opening == _openings)
            onPlainFileFound();
    };
    if (!forceFile && isMediaFileOnTheWeb(uri)) {
        auto source = std::make_unique<HttpFileDataSource>(uri.toString());
        connect(source.get(), &HttpFileDataSource::downloadProgressChanged, this, &ChannelStream::onDownloadProgress);
        // Queued: the source goes.
        connect(source.get(), &HttpFileDataSource::streamFound, this, plainFileFound, Qt::QueuedConnection);
        return source;
    }
    if (!forceFile && !isSegmentedOnTheWeb(uri) && _appData.latte.hasClientFactory(uri.scheme())) {
        auto source = std::make_unique<LatteDataSource>(&_appData.latte, description, QString());
        source->setStartDelay(_appData.settings.latteStartDelay());
        // Queued: the source goes.
        connect(source.get(), &LatteDataSource::plainFileFound, this, plainFileFound, Qt::QueuedConnection);
        return source;
    }
    auto source = std::make_unique<FileDataSource>(FileName::fromAddress(uri.toString()));
    source->setProxy(_appData.proxy());
    return source;
}

void ChannelStream::onPlainFileFound()
{
    if (!_renderer)
        return; // Closed meanwhile.
    bool const isFadingOut = _isFadingOut;
    bool const isFadingIn = isFading() && !isFadingOut;
    bool const isUnseen = _unseen;
    close();
    _unseen = isUnseen;
    open(true);
    if (isFadingIn) {
        fadeIn(OpenChannels::fadeTime, _volume, true, true);
    } else if (isFadingOut) {
        _isFadingOut = true; // Nobody is to hear or see it any more, unless it fades in again.
        _renderer->setVolume(0.0);
        _renderer->setOpacity(0.0);
    }
}

LatteClient const* ChannelStream::latteClient() const
{
    auto const* const source = qobject_cast<LatteDataSource const*>(_dataSource.get());
    return source ? source->client() : nullptr;
}

void ChannelStream::close()
{
    if (!_renderer)
        return;
    emit closing(this);
    _renderer->disconnect(this);
    _dataSource->disconnect(this);
    _renderer->close();
    _renderer.reset();
    _dataSource.reset();
    _opened = false;
    _isFadingOut = false;
    _unseen = false;
    emit closed(this);
}

void ChannelStream::onOpened(GLMovieRenderer*)
{
    _opened = true;
    applySpeed();
    onRecordChanged();
    emit opened(this);
}

void ChannelStream::onTimeUpdated(GLMovieRenderer*, double seconds)
{
    emit timeUpdated(this, seconds);
}

void ChannelStream::onCompleted(GLMovieRenderer*)
{
    if (_loop)
        emit needsLoop(this);
    else
        emit completed(this);
}

void ChannelStream::onLooped(GLMovieRenderer*)
{
    emit looped(this);
}

void ChannelStream::onError(GLMovieDataSource*, QString text)
{
    emit error(this, text);
}

void ChannelStream::onStateChanged(GLMovieDataSource*, QString text)
{
    emit stateChanged(this, text);
}

void ChannelStream::onDownloadProgress(qint64 received, qint64 total)
{
    if (!_opened && total > 0)
        emit stateChanged(this, tr("Acquiring Channel...\nPlease wait") +
                                    QStringLiteral(" (%1 %)").arg(100 * received / total));
}

void ChannelStream::onRecordChanged()
{
    // Nobody wants to keep what comes before a channel, or what he has not been shown.
    if (!_dataSource || !_opened || _unseen || _channel->desc.channelType() == ChannelDescription::SponsorshipChannel)
        return;
    if (!_appData.settings.record()) {
        _dataSource->stopRecording();
        return;
    }
    if (_dataSource->isRecording())
        return;
    _dataSource->startRecording(_appData.settings.recordingDirectory() + "/" + recordingName(_channel->desc.title()),
                                _appData.settings.debugMode());
}

void ChannelStream::onRecordingFailed(GLMovieDataSource*, QString reason)
{
    _appData.settings.setRecord(false);
    emit notice(this, tr("Recording stopped: %1").arg(reason));
}

void ChannelStream::onEnableVideoPostProcessingChanged()
{
    if (!_renderer)
        return;
    _renderer->setPostProcessingEnabled(_appData.settings.enableVideoPostProcessing());
    emit pictureUpdated();
}

void ChannelStream::onVideoPostProcessingChanged()
{
    if (!_renderer)
        return;
    givePostProcessing();
    emit pictureUpdated();
}
