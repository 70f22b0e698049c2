#pragma once

#include "MenuActions.h"
#include "SecretStore.h"
#include "ServiceAddresses.h"
#include "SettingsTable.h"
#include "SettingsValues.h"
#include "SettingsWriter.h"

#include <QObject>

#include <algorithm>
#include <type_traits>

class Logger;
class QAction;
class QSettings;

/// Every setting of the program, its fixed names, the addresses of its service, and the menu actions.
///
/// Kept in one INI file in user scope: loadGlobalSettings() reads the group "application", loadUserSettings() the
/// part of the group "user" that has the name of an account. What is stored where, by which default, and what shows
/// it is in SettingsTable.cpp. A setter that changes nothing does nothing; otherwise it stores the value, sets the
/// mark of its action and emits one signal. Loading emits the signals of what it changed, when all is loaded.
///
/// Nothing here fails: what the file has wrong is replaced, with a line in the log. Main thread only.
class AppSettings : public QObject
{
    Q_OBJECT

public:
    using ColourConversion = SettingsValues::ColourConversion;
    using Presentation = SettingsValues::Presentation;
    static constexpr char const* programVersion = "3.2.0";

    explicit AppSettings(QObject* parent = nullptr);
    ~AppSettings() override;

    /// For what is kept in the file and is no setting.
    SettingsWriter& file() { return _file; }

    // Fixed names.
    QString applicationName() const { return "Ombravision"; }
    QString organisation() const { return "Ombravision"; }
    QString organisationDomain() const;
    QString version() const { return programVersion; }
    QString localChannelFile() const { return "Channels.xml"; }
    QString logoDirectory() const { return "Logos"; }
    QString defaultNick() const { return SettingsValues::defaultNick; }
    QString fontFamily() const { return "Arial"; }
    QString chatFontFamily() const { return "Arial"; }

    /// Directories of this user; made when they are first needed.
    QString dataDirectory() const { return _dataDirectory; }
    QString recordingDirectory() const { return _dataDirectory + "/Recording"; }
    QString screenshotDirectory() const
    {
        return _values.screenshotDirectory.isEmpty() ? _dataDirectory + "/Screenshots" : _values.screenshotDirectory;
    }
    QString cacheDirectory() const;

    // The directory service. What ends with a slash is the beginning of addresses.
    Uri soapHost() const { return addresses().base(); }
    Uri channelsDocumentUri() const { return addresses().channelsDocument(); }
    QString channelsBaseUrl() const { return addresses().channels(); }
    QString streamsPath() const { return addresses().streams(); }
    QString stripesPath() const { return addresses().stripes(); }
    Uri entitlementsUrl() const { return addresses().entitlements(); }
    Uri logUploadUrl() const { return addresses().logUpload(); }
    Uri streamsLoginUrl() const { return addresses().streamsLogin(); }
    Uri invitationsUrl() const { return addresses().invitations(); }
    Uri chatModeratorsUrl() const { return addresses().chatModerators(); }
    Uri buzzFeedUrl() const { return addresses().buzzFeed(); }
    Uri helpUrl() const { return addresses().help(); }
    Uri supportUrl() const { return addresses().support(); }
    Uri feedbackUrl() const { return addresses().feedback(); }

    // Messaging: the server, the service that has the keys of those who send signed messages, roots and names of
    // topics.
    QString biscottiHost() const { return _values.biscottiHost; }
    unsigned short biscottiPort() const { return static_cast<unsigned short>(_values.biscottiPort); }
    Uri keychainUrl() const { return _values.keychainUrl; }
    QString biscottiApplicationId() const { return "Ombravision"; }
    QString chatTopic() const { return "ombra.chat"; }
    QString alertsTopic() const { return "ombra.alerts"; }
    QString voteTopic() const { return "ombra.vote"; }
    QString channelTopic() const { return "ombra.channel"; }
    QString userTrackerTopic() const { return "ombra.usertracker"; }
    QString systemTopicName() const { return "system"; }
    QString newUserChannelTopicName() const { return "channels.user.new"; }
    QString buzzTopicName() const { return "buzz"; }
    QString channelsTopicName() const { return "channels"; }

    // Run flags, set from the command line only.
    bool debugMode() const { return _debugMode; }
    void setDebugMode(bool on) { _debugMode = on; }
    bool demoMode() const { return _demoMode; }
    void setDemoMode(bool on) { _demoMode = on; }
    bool godMode() const { return _godMode; }
    void setGodMode(bool on) { _godMode = on; }
    bool startupMode() const { return _startupMode; }
    void setStartupMode(bool on) { _startupMode = on; }
    bool startFullScreen() const { return _startFullScreen; }
    void setStartFullScreen(bool on) { _startFullScreen = on; }

    void loadGlobalSettings();
    void saveGlobalSettings();
    /// Those of the account with that e-mail address. Without one nothing is loaded or saved.
    void loadUserSettings(QString const& email);
    void saveUserSettings(QString const& email);
    /// What an account would keep and makes sense without one, for as long as nobody is signed in.
    void loadGuestSettings();
    void saveGuestSettings();
    /// The language as the file has it, for what is shown in it before the settings are loaded.
    static QString storedLanguage();
    /// The group of the settings file that an account's settings are in.
    static QString userGroup(QString const& email);

    /// What enciphers from now on. Borrowed: null again before it goes. To be called before settings are loaded;
    /// without one, secrets are neither read nor written.
    void initEncryption(SecretKeeper* keeper) { _secrets.setKeeper(keeper); }
    /// The secret under a key of the group that the settings are in; null when there is none that can be read.
    QString readEncryptedPassword(QSettings& settings, QString const& key) { return _secrets.read(settings, key); }
    /// An empty secret takes the key away.
    void writeEncryptedPassword(QSettings& settings, QString const& key, QString const& secret);

    // Settings as fields, for what handles them as a table.
    SettingsValues const& values() const { return _values; }
    /// What the setter of the field does; a number outside its bounds is brought inside.
    template<class T>
    void setValue(T SettingsValues::*field, std::type_identity_t<T> const& value);
    /// A new list of addresses that were opened, the newest first.
    void setStreamHistory(QStringList const& addresses) { set(&SettingsValues::streamHistory, addresses); }
    QStringList streamHistory() const { return _values.streamHistory; }
    SettingsValues::StartPage startPage() const { return static_cast<SettingsValues::StartPage>(_values.startPage); }

    // Sound and picture.
    QString audioDevice() const { return _values.audioDevice; }
    void setAudioDevice(QString const& device) { set(&SettingsValues::audioDevice, device); }
    bool useHardwareColourConversion() const { return _values.useHardwareColourConversion; }
    void setUseHardwareColourConversion(bool on) { set(&SettingsValues::useHardwareColourConversion, on); }
    bool enableAntialiasing() const { return _values.enableAntialiasing; }
    void setEnableAntialiasing(bool on) { set(&SettingsValues::enableAntialiasing, on); }
    ColourConversion colourConversion() const { return _values.colourConversion; }
    /// Whether pictures made of two fields are made whole.
    bool deinterlace() const { return _values.deinterlace; }
    Presentation presentation() const { return _values.presentation; }

    // Network.
    int proxyType() const { return _values.proxyType; } ///< A QNetworkProxy::ProxyType.
    void setProxyType(int type) { set(&SettingsValues::proxyType, type); }
    QString proxyHostName() const { return _values.proxyHostName; }
    void setProxyHostName(QString const& host) { set(&SettingsValues::proxyHostName, host); }
    int proxyPort() const { return _values.proxyPort; }
    void setProxyPort(int port) { set(&SettingsValues::proxyPort, port); }
    QString proxyUser() const { return _values.proxyUser; }
    void setProxyUser(QString const& user) { set(&SettingsValues::proxyUser, user); }
    QString proxyPassword() const { return _values.proxyPassword; }
    void setProxyPassword(QString const& password) { set(&SettingsValues::proxyPassword, password); }
    /// This installation's identifier towards stream servers, made on the first run.
    QString mmsClientGuid() const { return _values.mmsClientGuid; }
    /// How long a stream's first data is gathered, in ms.
    int latteStartDelay() const { return _values.latteStartDelay; }
    /// What the cache of the web may hold, in bytes.
    qint64 cacheLimit() const { return qint64{_values.cacheLimit} << 20; }
    /// Whether passwords may go to another machine in the clear.
    bool allowPlainCredentials() const { return _values.allowPlainCredentials; }

    // The program.
    bool runAtStartup() const { return _values.runAtStartup; }
    void setRunAtStartup(bool on);
    bool testMode() const { return _values.testMode; }
    void setTestMode(bool on) { set(&SettingsValues::testMode, on); }
    int testModeFailureTimeout() const { return _values.testModeFailureTimeout; } ///< Seconds.
    void setTestModeFailureTimeout(int seconds) { set(&SettingsValues::testModeFailureTimeout, seconds); }
    bool testModePlayFailureSound() const { return _values.testModePlayFailureSound; }
    void setTestModePlayFailureSound(bool on) { set(&SettingsValues::testModePlayFailureSound, on); }
    /// Whether the account signs in without a question.
    bool autoLogin() const { return _values.autoLogin; }
    void setAutoLogin(bool on) { set(&SettingsValues::autoLogin, on); }

    // Playing.
    /// 0.0 to 1.0; values outside are brought inside. Setting it ends mute.
    double volume() const { return _values.volume; }
    void setVolume(double volume);
    bool muted() const { return _values.muted; }
    void setMuted(bool muted) { set(&SettingsValues::muted, muted); }
    bool record() const { return _values.record; }
    void setRecord(bool on) { set(&SettingsValues::record, on); }
    bool enableVideoPostProcessing() const { return _values.enableVideoPostProcessing; }
    void setEnableVideoPostProcessing(bool on) { set(&SettingsValues::enableVideoPostProcessing, on); }
    /// A GLMovieRenderer::DrawMode by number: 0 half, 1 normal and 2 double size, 3 stretch, 4 touch inside,
    /// 5 touch outside. Others change nothing.
    int drawMode() const { return _values.drawMode; }
    void setDrawMode(int mode);
    bool carouselMode() const { return _values.carouselMode; }
    void setCarouselMode(bool on) { set(&SettingsValues::carouselMode, on); }
    bool perspectiveMode() const { return _values.perspectiveMode; }
    void setPerspectiveMode(bool on) { set(&SettingsValues::perspectiveMode, on); }
    /// Root ids of the channels that were last active and open.
    QString activeChannel() const { return _values.activeChannel; }
    void setActiveChannel(QString const& id) { set(&SettingsValues::activeChannel, id); }
    QStringList openChannels() const { return _values.openChannels; }
    void setOpenChannels(QStringList const& ids) { set(&SettingsValues::openChannels, ids); }

    // The window.
    bool showWindowFrame() const { return _values.showWindowFrame; }
    void setShowWindowFrame(bool on) { set(&SettingsValues::showWindowFrame, on); }
    bool showFullScreen() const { return _values.showFullScreen; }
    void setShowFullScreen(bool on) { set(&SettingsValues::showFullScreen, on); }
    bool showMenuBar() const { return _values.showMenuBar; }
    void setShowMenuBar(bool on) { set(&SettingsValues::showMenuBar, on); }
    bool showTabs() const { return _values.showTabs; }
    void setShowTabs(bool on) { set(&SettingsValues::showTabs, on); }
    bool showChannelBarOnMouseOver() const { return _values.showChannelBarOnMouseOver; }
    void setShowChannelBarOnMouseOver(bool on) { set(&SettingsValues::showChannelBarOnMouseOver, on); }
    bool showVideoTips() const { return _values.showVideoTips; }
    void setShowVideoTips(bool on) { set(&SettingsValues::showVideoTips, on); }
    bool seenTutorial29() const { return _values.seenTutorial29; }
    void setSeenTutorial29(bool seen) { set(&SettingsValues::seenTutorial29, seen); }
    bool alwaysOnTop() const { return _values.alwaysOnTop; }
    void setAlwaysOnTop(bool on) { set(&SettingsValues::alwaysOnTop, on); }
    QList<int> tabPositions() const { return _values.tabPositions; }
    void setTabPositions(QList<int> const& positions) { set(&SettingsValues::tabPositions, positions); }
    QByteArray splitterState() const { return _values.splitterState; }
    void setSplitterState(QByteArray const& state) { set(&SettingsValues::splitterState, state); }
    QPoint position() const { return _values.position; }
    void setPosition(QPoint position) { set(&SettingsValues::position, position); }
    /// Null as long as the window has its own.
    QSize size() const { return _values.size; }
    void setSize(QSize size) { set(&SettingsValues::size, size); }
    bool maximised() const { return _values.maximised; }
    void setMaximised(bool on) { set(&SettingsValues::maximised, on); }
    /// Whether the viewer has been told, once and for all, that drawing is slow here, and that a closed window goes
    /// on.
    bool toldOfSlowDriver() const { return _values.toldOfSlowDriver; }
    void setToldOfSlowDriver(bool told) { set(&SettingsValues::toldOfSlowDriver, told); }
    bool toldOfTray() const { return _values.toldOfTray; }
    void setToldOfTray(bool told) { set(&SettingsValues::toldOfTray, told); }
    /// Where the last file was opened.
    QString videoFileDirectory() const { return _values.videoFileDirectory; }
    void setVideoFileDirectory(QString const& directory) { set(&SettingsValues::videoFileDirectory, directory); }

    // Alerts.
    bool showSystemAlerts() const { return _values.showSystemAlerts; }
    void setShowSystemAlerts(bool on) { set(&SettingsValues::showSystemAlerts, on); }
    bool showBreakingNewsAlerts() const { return _values.showBreakingNewsAlerts; }
    void setShowBreakingNewsAlerts(bool on) { set(&SettingsValues::showBreakingNewsAlerts, on); }
    bool showNewChannelAlerts() const { return _values.showNewChannelAlerts; }
    void setShowNewChannelAlerts(bool on) { set(&SettingsValues::showNewChannelAlerts, on); }
    bool showBuzzAlerts() const { return _values.showBuzzAlerts; }
    void setShowBuzzAlerts(bool on) { set(&SettingsValues::showBuzzAlerts, on); }
    bool showLivePanel() const { return _values.showLivePanel; }
    void setShowLivePanel(bool on) { set(&SettingsValues::showLivePanel, on); }
    bool showAlertsWindow() const { return _values.showAlertsWindow; }
    void setShowAlertsWindow(bool on) { set(&SettingsValues::showAlertsWindow, on); }
    bool alertsUseGrowl() const { return _values.alertsUseGrowl; }
    void setAlertsUseGrowl(bool on) { set(&SettingsValues::alertsUseGrowl, on); }
    int alertDisplayDuration() const { return _values.alertDisplayDuration; } ///< ms
    void setAlertDisplayDuration(int ms) { set(&SettingsValues::alertDisplayDuration, ms); }
    int alertDisplayOpacity() const { return _values.alertDisplayOpacity; } ///< Per cent.
    void setAlertDisplayOpacity(int percent) { set(&SettingsValues::alertDisplayOpacity, percent); }
    /// Whether a channel's alerts are shown; one that was never asked for before gets the default for good.
    bool channelAlerts(QString const& id, bool byDefault);
    void setChannelAlerts(QString const& id, bool on);
    /// Root ids, in the order in which the viewer has marked them.
    QStringList favouriteChannels() const { return _values.favouriteChannels; }
    void setFavouriteChannels(QStringList const& ids) { set(&SettingsValues::favouriteChannels, ids); }
    QStringList alertHistory() const { return _values.alertHistory; }
    void setAlertHistory(QStringList const& history) { set(&SettingsValues::alertHistory, history); }

    // Chat.
    QString chatNick() const { return _values.chatNick; }
    void setChatNick(QString const& nick) { set(&SettingsValues::chatNick, nick); }
    bool showChatMessagesAsAlerts() const { return _values.showChatMessagesAsAlerts; }
    void setShowChatMessagesAsAlerts(bool on) { set(&SettingsValues::showChatMessagesAsAlerts, on); }
    int chatFontSize() const { return _values.chatFontSize; } ///< Points.
    void setChatFontSize(int points) { set(&SettingsValues::chatFontSize, points); }
    QByteArray chatSplitterState() const { return _values.chatSplitterState; }
    void setChatSplitterState(QByteArray const& state) { set(&SettingsValues::chatSplitterState, state); }
    QList<ChatColour> chatColours() const { return _values.chatColours; }
    void setChatColours(QList<ChatColour> const& colours) { set(&SettingsValues::chatColours, colours); }

    // Twitter.
    QString twitterToken() const { return _values.twitterToken; }
    QString twitterTokenSecret() const { return _values.twitterTokenSecret; }
    void setTwitterCredentials(QString const& token, QString const& tokenSecret);
    bool twitterAutoAddOmbravisionTopic() const { return _values.twitterAutoAddOmbravisionTopic; }
    void setTwitterAutoAddOmbravisionTopic(bool on) { set(&SettingsValues::twitterAutoAddOmbravisionTopic, on); }

    // What the service has said at sign-in.
    bool bannerAdvertisingEnabled() const { return _values.bannerAdvertisingEnabled; }
    void setBannerAdvertisingEnabled(bool on) { set(&SettingsValues::bannerAdvertisingEnabled, on); }
    int bannerAdvertisingDelay() const { return _values.bannerAdvertisingDelay; } ///< Seconds.
    void setBannerAdvertisingDelay(int seconds) { set(&SettingsValues::bannerAdvertisingDelay, seconds); }
    int bannerAdvertisingDuration() const { return _values.bannerAdvertisingDuration; } ///< ms
    void setBannerAdvertisingDuration(int ms) { set(&SettingsValues::bannerAdvertisingDuration, ms); }
    QString bannerAdvertisingUrl() const { return _values.bannerAdvertisingUrl; }
    void setBannerAdvertisingUrl(QString const& url) { set(&SettingsValues::bannerAdvertisingUrl, url); }
    QStringList bannerAdvertisingSizes() const { return _values.bannerAdvertisingSizes; }
    void setBannerAdvertisingSizes(QStringList const& sizes) { set(&SettingsValues::bannerAdvertisingSizes, sizes); }
    bool chatAllowed() const { return _values.chatAllowed; }
    void setChatAllowed(bool allowed) { set(&SettingsValues::chatAllowed, allowed); }
    bool sponsorshipEnabled() const { return _values.sponsorshipEnabled; }
    void setSponsorshipEnabled(bool on) { set(&SettingsValues::sponsorshipEnabled, on); }
    int multiviewChannelLimit() const { return _values.multiviewChannelLimit; } ///< -1 for none.
    void setMultiviewChannelLimit(int limit) { set(&SettingsValues::multiviewChannelLimit, limit); }
    bool allowChatRoomChange() const { return _values.allowChatRoomChange; }
    void setAllowChatRoomChange(bool allowed) { set(&SettingsValues::allowChatRoomChange, allowed); }
    bool allowVideoPostProcessing() const { return _values.allowVideoPostProcessing; }
    void setAllowVideoPostProcessing(bool allowed) { set(&SettingsValues::allowVideoPostProcessing, allowed); }
    QString buyPremiumMessage() const { return _values.buyPremiumMessage; }
    void setBuyPremiumMessage(QString const& message) { set(&SettingsValues::buyPremiumMessage, message); }
    QString twitterConsumerKey() const { return _values.twitterConsumerKey; }
    void setTwitterConsumerKey(QString const& key) { set(&SettingsValues::twitterConsumerKey, key); }
    QString twitterConsumerSecret() const { return _values.twitterConsumerSecret; }
    void setTwitterConsumerSecret(QString const& secret) { set(&SettingsValues::twitterConsumerSecret, secret); }
    QString twitpicConsumerKey() const { return _values.twitpicConsumerKey; }
    void setTwitpicConsumerKey(QString const& key) { set(&SettingsValues::twitpicConsumerKey, key); }

    /// Makes the menu actions, marked as the settings are.
    void createActions();
    void destroyActions() { _actions.destroy(); }
    /// Null before createActions() and after destroyActions().
    QAction* action(MenuAction action) const { return _actions.at(action); }
    /// For what belongs to several of them: draw modes, speeds.
    MenuActions const& actions() const { return _actions; }

signals:
    void showWindowFrameChanged();
    void showFullScreenChanged();
    void showMenuBarChanged();
    void showTabsChanged();
    void showChannelBarOnMouseOverChanged();
    void tabPositionsChanged();
    void splitterStateChanged();
    void chatSplitterStateChanged();
    void alwaysOnTopChanged();
    void muteChanged();
    void volumeChanged();
    void carouselModeChanged();
    void testModeChanged();
    void testModeFailureTimeoutChanged();
    void testModePlayFailureSoundChanged();
    void perspectiveChanged();
    void recordChanged();
    void enableVideoPostProcessingChanged();
    void runAtStartupChanged();
    void autoLoginChanged();
    void showSystemAlertsChanged();
    void showNewChannelAlertsChanged();
    void showBreakingNewsAlertsChanged();
    void showBuzzAlertsChanged();
    void showLivePanelChanged();
    void showChatMessagesAsAlertsChanged();
    void showAlertsWindowChanged();
    void alertDisplayDurationChanged();
    void alertDisplayOpacityChanged();
    void alertsUseGrowlChanged();
    void channelAlertsChanged();
    void favouriteChannelsChanged();
    void audioDeviceChanged();
    void useHardwareColourConversionChanged();
    void enableAntialiasingChanged();
    void deinterlaceChanged();
    void colourConversionChanged();
    void presentationChanged();
    void proxyChanged();
    void cacheLimitChanged();
    void chatNickChanged();
    void chatColoursChanged();
    void showVideoTipsChanged();
    void twitterCredentialsChanged();
    void twitterAutoAddOmbravisionTopicChanged();
    void chatFontSizeChanged();
    void alertHistoryChanged();
    void bannerAdvertisingEnabledChanged();
    void bannerAdvertisingDelayChanged();
    void bannerAdvertisingDurationChanged();
    void bannerAdvertisingUrlChanged();
    void bannerAdvertisingSizesChanged();
    void chatAllowedChanged();
    void sponsorshipEnabledChanged();
    void drawModeChanged();

    /// The settings file is damaged, or can't be read or written: in words, for the viewer. The program goes on.
    void settingsFileFailed(QString const& message);

private:
    /// What every setter does.
    template<class T>
    void set(T SettingsValues::*field, std::type_identity_t<T> const& value)
    {
        if (_values.*field == value)
            return;
        _values.*field = value;
        announce(field);
    }
    void announce(SettingField const& field);
    void mark(Setting const& setting) const;
    void load(QSettings& settings, SettingScope scope);
    void save(QSettings& settings, SettingScope scope);
    void keepMmsClientGuid(QSettings& settings);
    void tell(QString const& problem);
    ServiceAddresses addresses() const { return {_values.serviceUrl, programVersion}; }

    static Logger* log;

    SettingsWriter _file;
    QString const _dataDirectory;
    bool _debugMode = false;
    bool _demoMode = false;
    bool _godMode = false;
    bool _startupMode = false;
    bool _startFullScreen = false;
    SettingsValues _values;
    MenuActions _actions;
    SecretStore _secrets;
};

template<class T>
void AppSettings::setValue(T SettingsValues::*field, std::type_identity_t<T> const& value)
{
    if constexpr (std::is_same_v<T, bool>) {
        if (field == &SettingsValues::runAtStartup)
            return setRunAtStartup(value);
    }
    if constexpr (std::is_same_v<T, double>) {
        if (field == &SettingsValues::volume)
            return setVolume(value);
    }
    if constexpr (std::is_same_v<T, int>) {
        Setting const* const setting = findSetting(field);
        if (setting && setting->bounds)
            return set(field, static_cast<int>(
                                  std::clamp<double>(value, setting->bounds->minimum, setting->bounds->maximum)));
    }
    set(field, value);
}
