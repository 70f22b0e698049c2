#include "SettingsTable.h"

#include "AppSettings.h"
#include "BoundedNumber.h"
#include "ServiceAddresses.h"
#include "Translations.h"

#include <QNetworkProxy>

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace
{

using A = AppSettings;
using V = SettingsValues;
constexpr auto Global = SettingScope::Global;
constexpr auto User = SettingScope::User;

/// A line of the table: what every setting has, then what some have.
struct Line : Setting {
    using Signal = void (A::*)();
    using ShownBy = std::optional<MenuAction>;

    constexpr Line(SettingScope where, char const* in, char const* name, SettingField what, Signal tells = nullptr,
                   ShownBy by = {})
        : Setting{in, name, what, tells, by, where}
    {
    }

    /// A setting that no file has.
    constexpr Line(SettingField what, Signal tells, ShownBy by = {})
        : Line(SettingScope::Run, "", "", what, tells, by)
    {
    }

    constexpr Line& otherwise(WhenAbsent absent)
    {
        whenAbsent = absent;
        return *this;
    }
    constexpr Line& stored(SettingStorage how)
    {
        storage = how;
        return *this;
    }
    constexpr Line& within(double minimum, double maximum, bool takesNearest = true)
    {
        bounds = {minimum, maximum, takesNearest};
        return *this;
    }
    constexpr Line& must(bool (*check)(QString const&))
    {
        accepts = check;
        return *this;
    }
    constexpr Line& ofAccount()
    {
        isOfAccount = true;
        return *this;
    }
    constexpr Line& shownOff()
    {
        actionShowsOff = true;
        return *this;
    }
};

bool isSomething(QString const& text)
{
    return !text.isEmpty();
}

bool isLanguage(QString const& text)
{
    return text.isEmpty() || Translations::isLanguage(text);
}

bool isServiceAddress(QString const& text)
{
    try {
        return ServiceAddresses::isUsable(Uri(text));
    } catch (std::invalid_argument const&) {
        return false;
    }
}

constexpr auto OnlyRead = SettingStorage::OnlyRead;
constexpr auto OnlyWritten = SettingStorage::OnlyWritten;
constexpr auto Enciphered = SettingStorage::Enciphered;
constexpr auto Current = WhenAbsent::Current;

constexpr Setting table[] = {
    Line(Global, "", "language", &V::language).must(isLanguage),
    Line(Global, "audio", "audioDevice", &V::audioDevice, &A::audioDeviceChanged),
    Line(Global, "video", "useHardwareColourConversion", &V::useHardwareColourConversion,
         &A::useHardwareColourConversionChanged),
    Line(Global, "video", "enableAntialiasing", &V::enableAntialiasing, &A::enableAntialiasingChanged),
    Line(Global, "video", "deinterlace", &V::deinterlace, &A::deinterlaceChanged),
    Line(Global, "video", "colourConversion", &V::colourConversion, &A::colourConversionChanged),
    Line(Global, "video", "presentation", &V::presentation, &A::presentationChanged),
    Line(Global, "video", "screenshotDirectory", &V::screenshotDirectory),
    Line(Global, "proxy", "proxyType", &V::proxyType, &A::proxyChanged)
        .within(QNetworkProxy::DefaultProxy, QNetworkProxy::FtpCachingProxy),
    Line(Global, "proxy", "ProxyHostName", &V::proxyHostName, &A::proxyChanged),
    Line(Global, "proxy", "ProxyPort", &V::proxyPort, &A::proxyChanged).within(0, BoundedNumber::maximumPort),
    Line(Global, "proxy", "ProxyUser", &V::proxyUser, &A::proxyChanged),
    Line(Global, "proxy", "ProxyPassword", &V::proxyPassword, &A::proxyChanged).stored(Enciphered),
    Line(Global, "biscotti", "host", &V::biscottiHost).must(isSomething).stored(OnlyRead),
    Line(Global, "biscotti", "port", &V::biscottiPort).within(1, BoundedNumber::maximumPort, false).stored(OnlyRead),
    Line(Global, "biscotti", "keychainUrl", &V::keychainUrl).stored(OnlyRead),
    Line(Global, "service", "url", &V::serviceUrl).must(isServiceAddress).stored(OnlyRead),
    Line(Global, "service", "allowPlainCredentials", &V::allowPlainCredentials),
    Line(Global, "cache", "limit", &V::cacheLimit, &A::cacheLimitChanged).within(1, 1 << 20),
    Line(Global, "start", "page", &V::startPage).within(0, 2),
    Line(Global, "streams", "history", &V::streamHistory),
    Line(Global, "tutorial", "seen29", &V::seenTutorial29), // See the account's.
    Line(Global, "latte", "startDelay", &V::latteStartDelay).within(0, 60000).stored(OnlyRead),
    Line(Global, "videoWindow", "runAtStartup", &V::runAtStartup, &A::runAtStartupChanged, MenuAction::RunAtStartup),
    Line(Global, "videoWindow", "showWindowFrame", &V::showWindowFrame, &A::showWindowFrameChanged,
         MenuAction::SkinMode)
        .shownOff()
        .otherwise(WhenAbsent::Off),
    Line(Global, "videoWindow", "mmsClientGuid", &V::mmsClientGuid).stored(OnlyRead),
    Line(Global, "videoWindow", "testModeFailureTimeout", &V::testModeFailureTimeout,
         &A::testModeFailureTimeoutChanged)
        .within(1, 24 * 60 * 60),
    Line(Global, "videoWindow", "testModePlayFailureSound", &V::testModePlayFailureSound,
         &A::testModePlayFailureSoundChanged),
    // What is written of the group above is not read again; a viewer finds the window again as it was all the same.
    Line(Global, "window", "showFrame", &V::showWindowFrame, &A::showWindowFrameChanged, MenuAction::SkinMode)
        .shownOff()
        .otherwise(Current),
    Line(Global, "window", "splitterState", &V::splitterState, &A::splitterStateChanged).otherwise(Current),
    Line(Global, "window", "position", &V::position).otherwise(Current),
    Line(Global, "window", "size", &V::size).otherwise(Current),
    Line(Global, "window", "maximised", &V::maximised),
    Line(Global, "window", "showTabs", &V::showTabs, &A::showTabsChanged, MenuAction::Tabs),
    Line(Global, "window", "showMenuBar", &V::showMenuBar, &A::showMenuBarChanged, MenuAction::MenuBar),
    Line(Global, "window", "alwaysOnTop", &V::alwaysOnTop, &A::alwaysOnTopChanged, MenuAction::AlwaysOnTop),
    Line(Global, "window", "volume", &V::volume, &A::volumeChanged).within(0.0, 1.0),
    Line(Global, "window", "videoDrawMode", &V::drawMode, &A::drawModeChanged, MenuAction::HalfSize).within(0, 5),
    Line(Global, "window", "showVideoTips", &V::showVideoTips, &A::showVideoTipsChanged),
    Line(Global, "window", "showChannelBarOnMouseOver", &V::showChannelBarOnMouseOver,
         &A::showChannelBarOnMouseOverChanged),
    Line(Global, "window", "videoFileDirectory", &V::videoFileDirectory),
    Line(Global, "window", "toldOfSlowDriver", &V::toldOfSlowDriver),
    Line(Global, "window", "toldOfTray", &V::toldOfTray),

    Line(User, "", "chatNick", &V::chatNick, &A::chatNickChanged),
    Line(User, "", "signInAutomatically", &V::autoLogin, &A::autoLoginChanged).ofAccount(),
    Line(User, "alerts", "showSystemAlerts", &V::showSystemAlerts, &A::showSystemAlertsChanged),
    Line(User, "alerts", "showBreakingNewsAlerts", &V::showBreakingNewsAlerts, &A::showBreakingNewsAlertsChanged),
    Line(User, "alerts", "showNewChannelAlerts", &V::showNewChannelAlerts, &A::showNewChannelAlertsChanged)
        .stored(OnlyWritten),
    Line(User, "alerts", "showBuzzAlerts", &V::showBuzzAlerts, &A::showBuzzAlertsChanged).stored(OnlyWritten),
    Line(User, "alerts", "showLivePanel", &V::showLivePanel, &A::showLivePanelChanged),
    Line(User, "alerts", "showAlertsWindow", &V::showAlertsWindow, &A::showAlertsWindowChanged),
    Line(User, "alerts", "alertDisplayDuration", &V::alertDisplayDuration, &A::alertDisplayDurationChanged)
        .within(0, 60 * 60 * 1000),
    Line(User, "alerts", "alertDisplayOpacity", &V::alertDisplayOpacity, &A::alertDisplayOpacityChanged)
        .within(0, 100),
    Line(User, "alerts", "channelAlerts", &V::channelAlerts, &A::channelAlertsChanged),
    Line(User, "alerts", "alertHistory", &V::alertHistory, &A::alertHistoryChanged),
    Line(User, "chat", "showChatMessagesAsAlerts", &V::showChatMessagesAsAlerts, &A::showChatMessagesAsAlertsChanged),
    Line(User, "chat", "chatFontSize", &V::chatFontSize, &A::chatFontSizeChanged).within(1, 200),
    Line(User, "chat", "splitterState", &V::chatSplitterState, &A::chatSplitterStateChanged),
    Line(User, "chat", "chatColours", &V::chatColours, &A::chatColoursChanged),
    Line(User, "twitter", "token", &V::twitterToken, &A::twitterCredentialsChanged).stored(Enciphered).ofAccount(),
    Line(User, "twitter", "tokenSecret", &V::twitterTokenSecret, &A::twitterCredentialsChanged)
        .stored(Enciphered)
        .ofAccount(),
    Line(User, "twitter", "autoAddOmbravisionTopic", &V::twitterAutoAddOmbravisionTopic,
         &A::twitterAutoAddOmbravisionTopicChanged),
    // What an account has no word about stays as it is in the window.
    Line(User, "videoWindow", "volume", &V::volume, &A::volumeChanged).within(0.0, 1.0).otherwise(Current),
    Line(User, "videoWindow", "muted", &V::muted, &A::muteChanged, MenuAction::Mute).otherwise(Current),
    Line(User, "videoWindow", "alwaysOnTop", &V::alwaysOnTop, &A::alwaysOnTopChanged, MenuAction::AlwaysOnTop)
        .otherwise(Current),
    Line(User, "videoWindow", "showTabs", &V::showTabs, &A::showTabsChanged, MenuAction::Tabs).otherwise(Current),
    Line(User, "videoWindow", "splitterState", &V::splitterState, &A::splitterStateChanged).otherwise(Current),
    Line(User, "videoWindow", "showMenuBar", &V::showMenuBar, &A::showMenuBarChanged, MenuAction::MenuBar)
        .otherwise(Current),
    Line(User, "videoWindow", "showWindowFrame", &V::showWindowFrame, &A::showWindowFrameChanged,
         MenuAction::SkinMode)
        .shownOff()
        .otherwise(Current),
    Line(User, "videoWindow", "position", &V::position).otherwise(Current),
    Line(User, "videoWindow", "size", &V::size).otherwise(Current),
    Line(User, "videoWindow", "videoFileDirectroy", &V::videoFileDirectory)
        .otherwise(Current), // Spelt so in the file.
    // What is written of the window's group is not read again; a viewer finds the last channels again all the same.
    Line(User, "channels", "active", &V::activeChannel).ofAccount(),
    Line(User, "channels", "open", &V::openChannels).ofAccount(),
    Line(User, "channels", "favourites", &V::favouriteChannels, &A::favouriteChannelsChanged),
    Line(User, "videoWindow", "activeChannel", &V::activeChannel).otherwise(Current),
    Line(User, "videoWindow", "openChannels", &V::openChannels).otherwise(Current),
    // Not read back from there either: it is this installation's.
    Line(User, "videoWindow", "seenTutorial29", &V::seenTutorial29).otherwise(Current),
    Line(User, "videoWindow", "showVideoTips", &V::showVideoTips, &A::showVideoTipsChanged).otherwise(Current),
    Line(User, "videoWindow", "showChannelBarOnMouseOver", &V::showChannelBarOnMouseOver,
         &A::showChannelBarOnMouseOverChanged)
        .otherwise(Current),
    Line(User, "videoWindow", "videoDrawMode", &V::drawMode, &A::drawModeChanged, MenuAction::HalfSize)
        .within(0, 5)
        .otherwise(Current),

    Line(&V::showFullScreen, &A::showFullScreenChanged, MenuAction::FullScreen),
    Line(&V::tabPositions, &A::tabPositionsChanged),
    Line(&V::record, &A::recordChanged, MenuAction::Record),
    Line(&V::carouselMode, &A::carouselModeChanged, MenuAction::ChannelCarousel),
    Line(&V::testMode, &A::testModeChanged, MenuAction::TestChannels),
    Line(&V::perspectiveMode, &A::perspectiveChanged),
    Line(&V::enableVideoPostProcessing, &A::enableVideoPostProcessingChanged, MenuAction::VideoPostProcessing),
    Line(&V::alertsUseGrowl, &A::alertsUseGrowlChanged),
    Line(&V::bannerAdvertisingEnabled, &A::bannerAdvertisingEnabledChanged),
    Line(&V::bannerAdvertisingDelay, &A::bannerAdvertisingDelayChanged),
    Line(&V::bannerAdvertisingDuration, &A::bannerAdvertisingDurationChanged),
    Line(&V::bannerAdvertisingUrl, &A::bannerAdvertisingUrlChanged),
    Line(&V::bannerAdvertisingSizes, &A::bannerAdvertisingSizesChanged),
    Line(&V::chatAllowed, &A::chatAllowedChanged),
    Line(&V::sponsorshipEnabled, &A::sponsorshipEnabledChanged),
};

} // namespace

std::span<Setting const> settingsTable()
{
    return table;
}

bool isOf(Setting const& setting, SettingScope scope)
{
    if (scope != SettingScope::Guest)
        return setting.scope == scope;
    return setting.scope == SettingScope::User && !setting.isOfAccount &&
           std::string_view(setting.group) != "videoWindow";
}

Setting const* findSetting(SettingField const& field)
{
    auto const found = std::ranges::find(table, field, &Setting::field);
    return found == std::end(table) ? nullptr : found;
}
