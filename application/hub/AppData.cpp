#include "AppData.h"

#include "AudioDevice.h"
#include "AudioOutputChoice.h"
#include "BiscottiClientId.h"
#include "CentralisedBiscotti.h"
#include "Channel.h"
#include "ChannelEvents.h"
#include "ChannelManager.h"
#include "FileLatteClientFactory.h"
#include "FileName.h"
#include "GLDriverLoader.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "LoginManager.h"
#include "MachineIdGenerator.h"
#include "MmsLatteClientFactory.h"
#include "MonotonicTickCounter.h"
#include "OwnChannels.h"
#include "PersistentKeychain.h"
#include "PipelinedFileDownloader.h"
#include "RestfulKeychain.h"
#include "RsaProvider.h"
#include "RtspLatteClientFactory.h"
#include "SignIn.h"
#include "SystemRandomGenerator.h"
#include "SystemTickCounter.h"
#include "ThreadedMemoQueue.h"
#include "TimedHttpClientFactory.h"
#include "TrieBiscottiSubscriptionEngine.h"
#include "Uri.h"
#include "WebCache.h"

#include <QAction>
#include <QFile>
#include <QFileInfo>

#include <ctime>

Logger* AppData::log = LoggerManager::logger();

namespace
{

template<typename T>
void destroy(T*& component)
{
    delete component;
    component = nullptr;
}

} // namespace

AppData::AppData(QObject* parent) : QObject(parent)
{
    connect(&videoPrograms, &VideoPrograms::postProcessingChanged, this, &AppData::videoPostProcessingChanged);
}

AppData::~AppData()
{
    uninitialize();
}

void AppData::initialize(QWidget* mainWidget)
{
    if (_initialized)
        return;
    LOG_INFO("Start creating application components");
    _mainWidget = mainWidget;
    _memoThread = new ThreadedMemoQueue;
    _memoThread->start(QThread::InheritPriority);
    _driverLoader = std::make_unique<GLDriverLoader>(); // Threads are started before, or when the window is there.
    settings.createActions();
    // Some of what is loaded is enciphered.
    _rsaProvider = new RsaProvider(settings.dataDirectory() + "/PrivateKey.pem");
    settings.initEncryption(_rsaProvider);
    settings.loadGlobalSettings();
    settings.loadGuestSettings();
    setProxy();
    _cursors = std::make_unique<ClickCursors>();
    _webAccess.createManager();
    _memoThread->waitUntilReady();
    _tickCounter = new MonotonicTickCounter;
    _randomGenerator = new SystemRandomGenerator(static_cast<int>(std::time(nullptr)));
    _httpClientFactory = new TimedHttpClientFactory(&plainHttpClientFactory, &timerFactory);
    _mmsLatteClientFactory = new MmsLatteClientFactory(settings.mmsClientGuid(), &timerFactory, &tcpSocketFactory,
                                                       &plainHttpClientFactory, &dateTimeBuilder, _memoThread);
    _fileLatteClientFactory = new FileLatteClientFactory;
    _rtspLatteClientFactory = new RtspLatteClientFactory(&rtspClientFactory, &timerFactory);
    createWebCache();
    registerLatteSchemes();
    _restfulKeychain = new RestfulKeychain(_httpClientFactory, settings.keychainUrl());
    _persistentKeychain = new PersistentKeychain(_restfulKeychain);
    _audioDevice = new AudioDevice;
    _channelManager = new ChannelManager(*this);
    _loginManager = new LoginManager(*this);
    _audioOutput = new AudioOutputChoice(settings, *_audioDevice, &timerFactory);
    _audioOutput->begin();
    createBiscotti();
    _signIn = new SignIn(*this, &timerFactory);
    _channelEvents = new ChannelEvents(*this, &timerFactory);
    connectChannelManager();
    connectSettings();
    connectSignIn();
    _initialized = true;
    LOG_INFO("Finished creating application components");
}

void AppData::uninitialize()
{
    if (!_initialized)
        return;
    LOG_INFO("Start destroying application components");
    _signIn->save();
    destroy(_channelEvents);
    destroy(_signIn);
    _webAccess.destroyManager();
    // Channels play on the device and are shown through the settings' actions: they close before either goes.
    _channelManager->closeAllChannels();
    settings.destroyActions();
    destroy(_audioOutput);
    _audioDevice->closeDevice();
    _webCache->ignore(settings.entitlementsUrl());
    // Whoever posts goes before the messaging client, which still sends what they have posted.
    destroy(_channelManager);
    destroy(_loginManager);
    destroy(_biscotti);
    settings.initEncryption(nullptr);
    destroy(_rsaProvider);
    destroy(_subscriptionEngine);
    destroy(_webCache);
    destroy(_pipelinedFileDownloader);
    destroy(_audioDevice);
    destroy(_randomGenerator);
    // Before the factory, which they give back clients to whose answers have not come.
    destroy(_restfulKeychain);
    destroy(_persistentKeychain);
    destroy(_httpClientFactory);
    destroy(_mmsLatteClientFactory);
    destroy(_fileLatteClientFactory);
    destroy(_rtspLatteClientFactory);
    _memoThread->exit(0);
    _memoThread->wait();
    destroy(_memoThread);
    destroy(_tickCounter);
    _cursors.reset();
    _driverLoader.reset();
    videoPrograms.clearPostProcessingShaders();
    _initialized = false;
    LOG_INFO("Finished destroying application components");
}

void AppData::createWebCache()
{
    _pipelinedFileDownloader = new PipelinedFileDownloader(_memoThread, _tickCounter);
    _webCache = new WebCache(_pipelinedFileDownloader, _randomGenerator, _memoThread, _tickCounter,
                             settings.cacheDirectory());
    _webCache->setLimit(settings.cacheLimit());
    connect(_webCache, &WebCache::updated, this, &AppData::onWebCacheUpdate);
}

void AppData::createBiscotti()
{
    _subscriptionEngine = new TrieBiscottiSubscriptionEngine;
    SystemTickCounter systemTime;
    QString const clientId = BiscottiClientId::create(MachineIdGenerator::machineId(), *_randomGenerator, systemTime);
    _biscotti =
        new CentralisedBiscotti(_tickCounter, _persistentKeychain, _memoThread, &tcpSocketFactory,
                                settings.biscottiHost(), settings.biscottiPort(), clientId, _subscriptionEngine,
                                CentralisedBiscottiMessageEncoding::Der, CentralisedBiscottiMessageDecoding::Ber);
}

QString AppData::buildStyleSheet(bool skin)
{
    QFile file(skin ? ":/Resources/stylesheet_skin.txt" : ":/Resources/stylesheet_normal.txt");
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void AppData::registerLatteSchemes()
{
    latte.registerLatteClientFactory(UriScheme("file"), _fileLatteClientFactory);
    latte.registerLatteClientFactory(UriScheme("mms"), _mmsLatteClientFactory);
    latte.registerLatteClientFactory(UriScheme("http"), _mmsLatteClientFactory);
    latte.registerLatteClientFactory(UriScheme("rtsp"), _rtspLatteClientFactory);
    for (char const* const scheme : {"file", "mms", "http", "rtsp"})
        latteVisualiserRegistry.registerLatteVisualiserFactory(UriScheme(scheme), &bufferVisualiserFactory);
}

void AppData::connectChannelManager()
{
    connect(_channelManager, &ChannelManager::channelOpened, this, &AppData::channelOpened);
    connect(_channelManager, &ChannelManager::channelClosed, this, &AppData::channelClosed);
    connect(_channelManager, &ChannelManager::channelChanged, this, &AppData::channelChanged);
    connect(_channelManager, &ChannelManager::channelsUpdated, this, &AppData::channelsUpdated);
    connect(_channelManager, &ChannelManager::channelError, this, &AppData::channelError);
    connect(_channelManager, &ChannelManager::channelStateChanged, this, &AppData::channelStateChanged);
    using Manager = ChannelManager;
    connect(_channelManager, &Manager::channelLogoUpdated, this, &AppData::channelLogoUpdated);
    connect(_channelManager, &Manager::postSponsorshipChannelChanged, this, &AppData::postSponsorshipChannelChanged);
    connect(_channelManager, &Manager::sponsorshipLoadCompanionAds, this, &AppData::sponsorshipLoadCompanionAds);
    connect(_channelManager, &Manager::sponsorshipDisplayCompanionAds, this,
            &AppData::sponsorshipDisplayCompanionAds);
    connect(_channelManager, &Manager::sponsorshipCloseCompanionAds, this, &AppData::sponsorshipCloseCompanionAds);
    connect(_channelEvents, &ChannelEvents::channelTestEvent, this, &AppData::channelTestEvent);
}

void AppData::connectSignIn()
{
    connect(_signIn, &SignIn::signedInChanged, this, &AppData::onSignedInChanged);
    connect(_signIn, &SignIn::signedInChanged, _channelEvents, &ChannelEvents::onSignedInChanged);
    connect(_signIn, &SignIn::signedInChanged, this, &AppData::signedInChanged);
    connect(_signIn, &SignIn::signInStarted, this, &AppData::signInStarted);
}

void AppData::signIn(QWidget* widget, bool automatic)
{
    _signIn->signIn(widget, automatic);
}

void AppData::signOut(bool notify)
{
    _signIn->signOut(notify);
}

void AppData::signUp(QWidget* widget)
{
    _signIn->signUp(widget);
}

void AppData::begin()
{
    if (settings.demoMode())
        _channelManager->startChecking();
    else if (_signIn->lastUser().isEmpty())
        settings.action(MenuAction::CreateAccount)->trigger();
    else
        settings.action(MenuAction::SignIn)->trigger();
}

void AppData::onSignedInChanged()
{
    if (_signIn->isSignedIn()) {
        _webCache->start();
        _webCache->watch(settings.entitlementsUrl()); // Nobody else is entitled, and the service is left alone.
    } else {
        _webCache->ignore(settings.entitlementsUrl());
        _webCache->stop();
    }
}

void AppData::connectSettings()
{
    connect(&settings, &AppSettings::muteChanged, _channelManager, &ChannelManager::onMuteChanged);
    connect(&settings, &AppSettings::volumeChanged, _channelManager, &ChannelManager::onVolumeChanged);
    connect(&settings, &AppSettings::showFullScreenChanged, _channelManager, &ChannelManager::onFullScreenChanged);
    connect(_audioOutput, &AudioOutputChoice::changed, this, &AppData::onAudioDeviceChanged);
    connect(_audioOutput, &AudioOutputChoice::failed, this, &AppData::audioDeviceFailed);
    connect(&settings, &AppSettings::useHardwareColourConversionChanged, this,
            &AppData::onUseHardwareColourConversionChanged);
    connect(&settings, &AppSettings::enableAntialiasingChanged, this, &AppData::onEnableAntialiasingChanged);
    connect(&settings, &AppSettings::presentationChanged, this, &AppData::onEnableAntialiasingChanged);
    for (auto const signal : {&AppSettings::deinterlaceChanged, &AppSettings::colourConversionChanged})
        connect(&settings, signal, this, &AppData::onUseHardwareColourConversionChanged);
    connect(&settings, &AppSettings::proxyChanged, this, &AppData::setProxy);
    connect(&settings, &AppSettings::cacheLimitChanged, this, [this] { _webCache->setLimit(settings.cacheLimit()); });
}

void AppData::onAudioDeviceChanged()
{
    // What opens again waits for the device with its sound, and not with its picture.
    if (_audioDevice && _audioDevice->wantedDevice() != settings.audioDevice())
        _channelEvents->closeAround([this] { _audioOutput->follow(); });
}

void AppData::onUseHardwareColourConversionChanged()
{
    _channelEvents->closeAround([] {}); // It counts from the next opening on.
}

void AppData::onEnableAntialiasingChanged()
{
    _channelEvents->closeForNewSurface();
    emit surfaceOutdated();
}

/// Who is entitled to what has changed: the service is asked again.
void AppData::onWebCacheUpdate(Uri const& uri, bool hasChanged, QDateTime const&)
{
    if (hasChanged && uri == settings.entitlementsUrl())
        _channelManager->refresh();
}

void AppData::onWindowVisibilityChanged(bool visible)
{
    _channelEvents->onWindowVisibilityChanged(visible);
}

void AppData::openNames(QStringList const& names)
{
    bool isFirst = true;
    for (QString const& name : names) {
        // Only what looks like an address is looked for on the disk, which may take its time.
        if (FileName::isAddress(name) || !OwnChannels::isAddress(name) || QFileInfo::exists(name))
            _channelManager->openFile(name, isFirst);
        else
            _channelManager->openUserStream(name, Uri::withoutUserInfo(name), isFirst);
        isFirst = false;
    }
}
