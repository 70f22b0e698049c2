#pragma once

#include "AppSettings.h"
#include "BufferLatteVisualiser.h"
#include "GLMovieShader.h"
#include "Latte.h"
#include "LatteVisualiserRegistry.h"
#include "NativeRtspClientFactory.h"
#include "QtDateTimeBuilder.h"
#include "QtHttpClientFactory.h"
#include "QtTcpSocketFactory.h"
#include "QtTimerFactory.h"

#include <QList>
#include <QNetworkProxy>
#include <QObject>
#include <QString>

#include <memory>
#include <vector>

class AudioDevice;
class AudioDeviceWatch;
class CentralisedBiscotti;
class Channel;
class ChannelManager;
class FileLatteClientFactory;
class Logger;
class LoginManager;
class MmsLatteClientFactory;
class PersistentKeychain;
class QCursor;
class QNetworkAccessManager;
class QWidget;
class RandomGenerator;
class RestfulKeychain;
class RsaProvider;
class RtspLatteClientFactory;
class ThreadedMemoQueue;
class TickCounter;
class TimedHttpClientFactory;
class TrieBiscottiSubscriptionEngine;

/// The hub: creates, wires, owns and destroys every long-lived component, in a fixed order.
///
/// Components get what they need from here, by constructor or by holding an AppData&. All on the GUI thread, save
/// the memo thread, which is started here and stopped after all that post to it are gone.
class AppData : public QObject
{
    Q_OBJECT

public:
    explicit AppData(QObject* parent = nullptr);
    ~AppData() override;

    /// Creates all components, once. `mainWidget` is the parent for dialogs.
    void initialize(QWidget* mainWidget);

    /// Destroys them. Does nothing before initialize() or a second time.
    void uninitialize();

    // The values come first: they are there from construction to destruction.
    AppSettings settings;
    Latte latte;
    LatteVisualiserRegistry latteVisualiserRegistry;
    QtDateTimeBuilder dateTimeBuilder;
    QtTcpSocketFactory tcpSocketFactory;
    QtTimerFactory timerFactory;
    QtHttpClientFactory plainHttpClientFactory;
    BufferLatteVisualiserFactory bufferVisualiserFactory;
    NativeRtspClientFactory rtspClientFactory;

    AudioDevice* audioDevice() const { return _audioDevice; }
    ChannelManager* channelManager() const { return _channelManager; }
    LoginManager* loginManager() const { return _loginManager; }
    RsaProvider* rsaProvider() const { return _rsaProvider; }
    CentralisedBiscotti* biscotti() const { return _biscotti; }
    ThreadedMemoQueue* memoThread() const { return _memoThread; }
    TickCounter* tickCounter() const { return _tickCounter; }
    RandomGenerator* randomGenerator() const { return _randomGenerator; }
    TimedHttpClientFactory* httpClientFactory() const { return _httpClientFactory; }
    QNetworkAccessManager* networkAccessManager() const { return _networkAccessManager; }
    QWidget* mainWidget() const { return _mainWidget; }

    /// The pointers that say what a click on a channel does: replace what plays, add to it, close.
    QCursor* playCursor() const { return _playCursor; }
    QCursor* openCursor() const { return _openCursor; }
    QCursor* closeCursor() const { return _closeCursor; }

    /// The look of the window with its frame, or without it as a skin; empty when the resource is missing.
    static QString buildStyleSheet(bool skin);

    /// Tell everyone what the desktop has announced.
    void emitSystemResumed() { emit systemResumed(); }
    void emitSystemSuspended() { emit systemSuspended(); }
    void emitSystemShutdown() { emit systemShutdown(); }
    void emitDockIconClicked() { emit dockIconClicked(); }

    /// Makes the application's proxy as the settings say.
    void setProxy();
    /// The proxy of the settings.
    QNetworkProxy proxy() const;
    void loadCookieJar();
    void saveCookieJar();

    /// The two programs that convert colours on the card. Made by the video surface, with its context current.
    void createColourConversionPrograms();
    unsigned int colourConversionFragmentProgram() const { return _colourConversionFragmentProgram; }
    GLMovieShader& colourConversionShader() { return _colourConversionShader; }
    /// Whether OpenGL runs on the processor, where every sample counts.
    bool drawsInSoftware() const { return _drawsInSoftware; }

    /// The effects that pictures pass through while post-processing is on, in order; owned here.
    QList<GLMovieShader*> postProcessingShaders() const;
    void clearPostProcessingShaders();
    void addPostProcessingShaders(std::vector<std::unique_ptr<GLMovieShader>> shaders);

    /// Plays what the viewer named: addresses as streams, everything else as files; the first in place of what plays,
    /// the others beside it.
    void openNames(QStringList const& names);

signals:
    void channelOpened(Channel* channel);
    void channelClosed(Channel* channel);
    void channelChanged(Channel* from, Channel* to);
    void channelsUpdated();
    void channelError(Channel* channel, QString text);
    void channelStateChanged(Channel* channel, QString text);
    void dockIconClicked();
    void systemShutdown();
    void systemSuspended();
    void systemResumed();
    void videoPostProcessingChanged();

public slots:
    /// A hidden window never plays: hiding closes all channels, showing opens them again.
    void onWindowVisibilityChanged(bool visible);
    void onAudioDeviceChanged();
    void onUseHardwareColourConversionChanged();

private:
    void createCursors();
    void registerLatteSchemes();
    void createBiscotti();
    void chooseAudioDevice();
    void openAudioDevice();
    void connectChannelManager();
    void connectSettings();

    static Logger* log;

    QWidget* _mainWidget = nullptr;
    QCursor* _playCursor = nullptr;
    QCursor* _openCursor = nullptr;
    QCursor* _closeCursor = nullptr;
    QNetworkAccessManager* _networkAccessManager = nullptr;
    ThreadedMemoQueue* _memoThread = nullptr;
    TickCounter* _tickCounter = nullptr;
    RandomGenerator* _randomGenerator = nullptr;
    TimedHttpClientFactory* _httpClientFactory = nullptr;
    MmsLatteClientFactory* _mmsLatteClientFactory = nullptr;
    FileLatteClientFactory* _fileLatteClientFactory = nullptr;
    RtspLatteClientFactory* _rtspLatteClientFactory = nullptr;
    RestfulKeychain* _restfulKeychain = nullptr;
    PersistentKeychain* _persistentKeychain = nullptr;
    AudioDevice* _audioDevice = nullptr;
    AudioDeviceWatch* _audioDeviceWatch = nullptr;
    ChannelManager* _channelManager = nullptr;
    LoginManager* _loginManager = nullptr;
    RsaProvider* _rsaProvider = nullptr;
    TrieBiscottiSubscriptionEngine* _subscriptionEngine = nullptr;
    CentralisedBiscotti* _biscotti = nullptr;
    GLMovieShader _colourConversionShader;
    unsigned int _colourConversionFragmentProgram = 0;
    bool _drawsInSoftware = false;
    std::vector<std::unique_ptr<GLMovieShader>> _postProcessingShaders;
    bool _initialized = false;
};
