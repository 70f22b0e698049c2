#pragma once

#include "Uri.h"

#include <QByteArray>
#include <QColor>
#include <QHash>
#include <QList>
#include <QPoint>
#include <QSize>
#include <QString>
#include <QStringList>

/// A colour of the chat: as it is in a plain window and in one with a skin.
struct ChatColour {
    QString name; ///< What has this colour, as the viewer reads it.
    QColor native;
    QColor skin;
    int type; ///< Which of the palette's entries it is, from 0.

    bool operator==(ChatColour const& other) const = default;
};

/// Every setting as a plain field, as it is before any file was read. What of it is stored, where, and who hears of a
/// change is the settings table's. A plain value, by subject.
struct SettingsValues { // NOLINT(clang-analyzer-optin.performance.Padding): it is read by people, and there is one.
    /// Which way a picture takes to the screen; Automatic is the best that the driver offers.
    enum class ColourConversion { Automatic, Shader, FragmentProgram, Software };

    /// What shows opaque pictures: OpenGL or MIT-SHM; Automatic is the latter where OpenGL runs on the processor.
    enum class Presentation { Automatic, OpenGl, SharedMemory };

    /// What plays first once there is a directory.
    enum class StartPage { LastChannels = 0, DefaultChannel = 1, Nothing = 2 };

    static constexpr char const* defaultNick = "Viewer";

    SettingsValues();

    // Sound, picture and network of this installation.
    QString audioDevice;
    bool useHardwareColourConversion = true;
    bool enableAntialiasing = false;
    ColourConversion colourConversion = ColourConversion::Automatic;
    bool deinterlace = true;
    Presentation presentation = Presentation::Automatic;
    QString screenshotDirectory; ///< Empty for the default one.
    int proxyType = 2;           ///< A QNetworkProxy::ProxyType.
    QString proxyHostName;
    int proxyPort = 0;
    QString proxyUser;
    QString proxyPassword;
    QString mmsClientGuid;
    int latteStartDelay; ///< ms
    QString biscottiHost;
    int biscottiPort;
    Uri keychainUrl;
    Uri serviceUrl;
    bool allowPlainCredentials = false;
    int cacheLimit = 256; ///< MiB
    int startPage = 0;    ///< A StartPage.
    QStringList streamHistory;
    bool runAtStartup = true;
    QString language;                ///< By its code; empty for that of the system.
    int testModeFailureTimeout = 30; ///< Seconds.
    bool testModePlayFailureSound = false;

    // The viewer's account and chat.
    QString chatNick;
    bool autoLogin = false;
    bool showChatMessagesAsAlerts = false;
    int chatFontSize = 11; ///< Points.
    QByteArray chatSplitterState;
    QList<ChatColour> chatColours;
    QString twitterToken;
    QString twitterTokenSecret;
    bool twitterAutoAddOmbravisionTopic = true;

    // Alerts.
    bool showSystemAlerts = true;
    bool showBreakingNewsAlerts = true;
    bool showNewChannelAlerts = false;
    bool showBuzzAlerts = false;
    bool showLivePanel = true;
    bool showAlertsWindow = true;
    bool alertsUseGrowl = false;
    int alertDisplayDuration = 30000; ///< ms
    int alertDisplayOpacity = 85;     ///< Per cent.
    QHash<QString, bool> channelAlerts;
    QStringList alertHistory;

    // The window.
    double volume = 1.0;
    bool muted = false;
    bool alwaysOnTop = false;
    bool showWindowFrame = true;
    bool showFullScreen = false;
    bool showMenuBar = true;
    bool showTabs = true;
    bool showChannelBarOnMouseOver = true;
    bool showVideoTips = true;
    bool seenTutorial29 = false;
    int drawMode = 4;
    QByteArray splitterState;
    QList<int> tabPositions;
    QPoint position;
    QSize size;
    bool maximised = false;
    bool toldOfSlowDriver = false;
    bool toldOfTray = false;
    QString videoFileDirectory;
    QString activeChannel;
    QStringList openChannels;
    QStringList favouriteChannels;

    // This run's.
    bool record = false;
    bool carouselMode = false;
    bool perspectiveMode = false;
    bool testMode = false;
    bool enableVideoPostProcessing = false;

    // What the service allows the viewer who has signed in.
    bool bannerAdvertisingEnabled = false;
    int bannerAdvertisingDelay = 120;      ///< Seconds.
    int bannerAdvertisingDuration = 30000; ///< ms
    QString bannerAdvertisingUrl;
    QStringList bannerAdvertisingSizes;
    bool chatAllowed = false;
    bool sponsorshipEnabled = true;
    int multiviewChannelLimit = -1; ///< No limit.
    bool allowChatRoomChange = true;
    bool allowVideoPostProcessing = false;
    QString buyPremiumMessage;
    QString twitterConsumerKey;
    QString twitterConsumerSecret;
    QString twitpicConsumerKey;
};
