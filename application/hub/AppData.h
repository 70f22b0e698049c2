#pragma once

#include "AppSettings.h"
#include "BufferLatteVisualiser.h"
#include "ChannelDescription.h"
#include "ClickCursors.h"
#include "Latte.h"
#include "LatteVisualiserRegistry.h"
#include "NativeRtspClientFactory.h"
#include "QtDateTimeBuilder.h"
#include "QtHttpClientFactory.h"
#include "QtTcpSocketFactory.h"
#include "QtTimerFactory.h"
#include "SponsorshipResponse.h"
#include "TestEvent.h"
#include "TokenStreamAddress.h"
#include "VideoPrograms.h"
#include "WebAccess.h"

#include <QDateTime>
#include <QList>
#include <QObject>
#include <QString>

#include <memory>
#include <vector>

class AudioDevice;
class AudioOutputChoice;
class CentralisedBiscotti;
class Channel;
class ChannelEvents;
class ChannelManager;
class FileLatteClientFactory;
class GLDriverLoader;
class Logger;
class LoginManager;
class MmsLatteClientFactory;
class PersistentKeychain;
class PipelinedFileDownloader;
class QNetworkAccessManager;
class QWidget;
class RandomGenerator;
class RestfulKeychain;
class RsaProvider;
class RtspLatteClientFactory;
class SignIn;
class ThreadedMemoQueue;
class TickCounter;
class TimedHttpClientFactory;
class TrieBiscottiSubscriptionEngine;
class WebCache;

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
    VideoPrograms videoPrograms;
    TokenStreamAddress streamAddress{&dateTimeBuilder}; ///< Where streams are opened.

    AudioDevice* audioDevice() const { return _audioDevice; }
    ChannelManager* channelManager() const { return _channelManager; }
    LoginManager* loginManager() const { return _loginManager; }
    SignIn* signIn() const { return _signIn; }
    ChannelEvents* channelEvents() const { return _channelEvents; }
    PipelinedFileDownloader* pipelinedFileDownloader() const { return _pipelinedFileDownloader; }
    WebCache* webCache() const { return _webCache; }
    RsaProvider* rsaProvider() const { return _rsaProvider; }
    CentralisedBiscotti* biscotti() const { return _biscotti; }
    ThreadedMemoQueue* memoThread() const { return _memoThread; }
    TickCounter* tickCounter() const { return _tickCounter; }
    RandomGenerator* randomGenerator() const { return _randomGenerator; }
    TimedHttpClientFactory* httpClientFactory() const { return _httpClientFactory; }
    QNetworkAccessManager* networkAccessManager() const { return _webAccess.manager(); }
    QWidget* mainWidget() const { return _mainWidget; }

    /// The pointers that say what a click on a channel does: replace what plays, add to it, close.
    QCursor* playCursor() const { return &_cursors->play; }
    QCursor* openCursor() const { return &_cursors->open; }
    QCursor* closeCursor() const { return &_cursors->close; }

    /// The look of the window with its frame, or without it as a skin; empty when the resource is missing.
    static QString buildStyleSheet(bool skin);

    /// Tell everyone what the desktop has announced.
    void emitSystemResumed() { emit systemResumed(); }
    void emitSystemSuspended() { emit systemSuspended(); }
    void emitSystemShutdown() { emit systemShutdown(); }
    void emitDockIconClicked() { emit dockIconClicked(); }

    /// Makes the application's proxy as the settings say.
    void setProxy() { _webAccess.setProxy(); }
    /// The proxy of the settings.
    QNetworkProxy proxy() const { return _webAccess.proxy(); }
    void loadCookieJar() { _webAccess.loadCookieJar(); }
    void saveCookieJar() { _webAccess.saveCookieJar(); }

    /// The effects that pictures pass through while post-processing is on, in order.
    QList<GLMovieShader*> postProcessingShaders() const { return videoPrograms.postProcessingShaders(); }

    /// Signs in, without a question if that is wanted and possible, or asks; see SignIn.
    void signIn(QWidget* widget, bool automatic);
    void signOut(bool notify);
    void signUp(QWidget* widget);

    /// What begins when nothing was named on the command line: the local channels in demo mode, otherwise the account
    /// of who was here last, or a new one.
    void begin();

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
    void postSponsorshipChannelChanged(QString rootId);
    void sponsorshipLoadCompanionAds(SponsorshipResponse response);
    void sponsorshipDisplayCompanionAds();
    void sponsorshipCloseCompanionAds();
    void channelLogoUpdated(ChannelDescription description);
    void channelTestEvent(TestEvent event);
    void signedInChanged();
    void signInStarted();
    void dockIconClicked();
    void systemShutdown();
    void systemSuspended();
    void systemResumed();
    void videoPostProcessingChanged();
    /// There is no sound, or not from where the viewer has chosen: in words.
    void audioDeviceFailed(QString const& text);
    /// The video surface is to be made anew; nothing plays until that is done.
    void surfaceOutdated();

public slots:
    /// A hidden window never plays: hiding closes all channels, showing opens them again.
    void onWindowVisibilityChanged(bool visible);
    void onSignedInChanged();
    void onAudioDeviceChanged();
    void onUseHardwareColourConversionChanged();
    void onEnableAntialiasingChanged();
    void onWebCacheUpdate(Uri const& uri, bool hasChanged, QDateTime const& date);

private:
    void registerLatteSchemes();
    void createBiscotti();
    void createWebCache();
    void connectChannelManager();
    void connectSignIn();
    void connectSettings();

    static Logger* log;

    QWidget* _mainWidget = nullptr;
    std::unique_ptr<ClickCursors> _cursors;
    std::unique_ptr<GLDriverLoader> _driverLoader;
    WebAccess _webAccess{settings};
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
    AudioOutputChoice* _audioOutput = nullptr;
    ChannelManager* _channelManager = nullptr;
    LoginManager* _loginManager = nullptr;
    RsaProvider* _rsaProvider = nullptr;
    TrieBiscottiSubscriptionEngine* _subscriptionEngine = nullptr;
    CentralisedBiscotti* _biscotti = nullptr;
    PipelinedFileDownloader* _pipelinedFileDownloader = nullptr;
    WebCache* _webCache = nullptr;
    SignIn* _signIn = nullptr;
    ChannelEvents* _channelEvents = nullptr;
    bool _initialized = false;
};
