#pragma once

#include "Uri.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <array>
#include <memory>

class Logger;
class QAction;
class QActionGroup;
class QSettings;
struct BoundedNumber;

/// Every setting of the program, its fixed names, and the menu actions whose state mirrors a setting.
///
/// Kept in one INI file in user scope; loadGlobalSettings() reads the group "application". A setter that changes
/// nothing does nothing; otherwise it stores the value, updates its action and emits one signal. Main thread only.
class AppSettings : public QObject
{
    Q_OBJECT

public:
    /// Which way a picture takes to the screen; Automatic is the best that the driver offers.
    enum class ColourConversion { Automatic, Shader, FragmentProgram, Software };

    /// What shows opaque pictures: OpenGL or MIT-SHM; Automatic is the latter where OpenGL runs on the processor.
    enum class Presentation { Automatic, OpenGl, SharedMemory };
    static constexpr char const* programVersion = "3.2.0";

    explicit AppSettings(QObject* parent = nullptr);
    ~AppSettings() override;

    QString applicationName() const { return _applicationName; }
    QString organisation() const { return _applicationName; }
    QString organisationDomain() const { return _organisationDomain; }
    QString version() const { return programVersion; }

    /// Directories of this user; made when they are first needed.
    QString dataDirectory() const { return _dataDirectory; }
    QString recordingDirectory() const { return _dataDirectory + "/Recording"; }
    QString screenshotDirectory() const { return _dataDirectory + "/Screenshots"; }

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

    QString audioDevice() const { return _audioDevice; }
    void setAudioDevice(QString const& device);
    bool useHardwareColourConversion() const { return _useHardwareColourConversion; }
    void setUseHardwareColourConversion(bool on);
    ColourConversion colourConversion() const { return _colourConversion; }
    /// Whether pictures made of two fields are made whole.
    bool deinterlace() const { return _deinterlace; }
    Presentation presentation() const { return _presentation; }
    bool enableAntialiasing() const { return _enableAntialiasing; }
    void setEnableAntialiasing(bool on);

    int proxyType() const { return _proxyType; }
    QString proxyHostName() const { return _proxyHostName; }
    int proxyPort() const { return _proxyPort; }
    QString proxyUser() const { return _proxyUser; }
    QString proxyPassword() const { return _proxyPassword; }

    /// This installation's identifier towards stream servers, made on the first run.
    QString mmsClientGuid() const { return _mmsClientGuid; }

    /// How long a stream's first data is gathered, in ms.
    int latteStartDelay() const { return _latteStartDelay; }

    /// The messaging server, and the service that has the keys of those who send signed messages.
    QString biscottiHost() const { return _biscottiHost; }
    unsigned short biscottiPort() const { return _biscottiPort; }
    Uri keychainUrl() const { return _keychainUrl; }

    bool runAtStartup() const { return _runAtStartup; }
    void setRunAtStartup(bool on);

    /// 0.0 to 1.0; values outside are brought inside. Setting it ends mute.
    double volume() const { return _volume; }
    void setVolume(double volume);
    bool muted() const { return _muted; }
    void setMuted(bool muted);
    bool showFullScreen() const { return _showFullScreen; }
    void setShowFullScreen(bool on);
    bool showMenuBar() const { return _showMenuBar; }
    void setShowMenuBar(bool on);
    bool alwaysOnTop() const { return _alwaysOnTop; }
    void setAlwaysOnTop(bool on);
    bool record() const { return _record; }
    void setRecord(bool on);
    bool enableVideoPostProcessing() const { return _enableVideoPostProcessing; }
    void setEnableVideoPostProcessing(bool on);

    /// A GLMovieRenderer::DrawMode by number: 0 half, 1 normal and 2 double size, 3 stretch, 4 touch inside,
    /// 5 touch outside.
    int drawMode() const { return _drawMode; }
    void setDrawMode(int mode);

    /// Where the last file was opened.
    QString videoFileDirectory() const { return _videoFileDirectory; }
    void setVideoFileDirectory(QString const& directory) { _videoFileDirectory = directory; }

    void createActions();
    void destroyActions();

    /// The menu action of that text, which must be one that createActions() has made.
    QAction* action(QString const& text) const;
    /// The six draw modes, in order of their numbers.
    QList<QAction*> drawModeActions() const;
    /// The eight speeds from "0.25x" to "2x".
    QList<QAction*> speedActions() const;

    /// The factor of a speed action.
    static double speedOf(QAction const* action);
    /// Shows which speed holds, and whether another can be chosen.
    void showSpeed(double speed, bool canChange);

signals:
    void audioDeviceChanged();
    void useHardwareColourConversionChanged();
    void enableAntialiasingChanged();
    void runAtStartupChanged();
    void volumeChanged();
    void muteChanged();
    void showFullScreenChanged();
    void showMenuBarChanged();
    void alwaysOnTopChanged();
    void recordChanged();
    void enableVideoPostProcessingChanged();
    void drawModeChanged();

private:
    struct ActionSpec {
        char const* text;
        char const* shortcut; ///< Null for none.
        bool checkable;
    };
    static ActionSpec const actionSpecs[];

    static int readNumber(QSettings const& settings, BoundedNumber const& number);
    void loadBiscotti(QSettings const& settings);
    void check(QString const& text, bool checked);

    static Logger* log;

    QString const _applicationName;
    QString const _organisationDomain;
    QString const _dataDirectory;

    bool _debugMode = false;
    bool _demoMode = false;
    bool _godMode = false;
    bool _startupMode = false;
    bool _startFullScreen = false;

    QString _audioDevice;
    bool _useHardwareColourConversion = true;
    ColourConversion _colourConversion = ColourConversion::Automatic;
    bool _deinterlace = true;
    Presentation _presentation = Presentation::Automatic;
    bool _enableAntialiasing = false;
    int _proxyType = 2;
    QString _proxyHostName;
    int _proxyPort = 0;
    QString _proxyUser;
    QString _proxyPassword;
    QString _mmsClientGuid;
    int _latteStartDelay = 0;
    QString _biscottiHost;
    unsigned short _biscottiPort = 0;
    Uri _keychainUrl;
    bool _runAtStartup = true;

    double _volume = 1.0;
    bool _muted = false;
    bool _showFullScreen = false;
    bool _showMenuBar = true;
    bool _alwaysOnTop = false;
    bool _record = false;
    bool _enableVideoPostProcessing = false;
    int _drawMode = 4;
    QString _videoFileDirectory;

    QList<QAction*> _actions; ///< Owned; empty before createActions() and after destroyActions().
    std::unique_ptr<QActionGroup> _drawModeGroup;
    std::unique_ptr<QActionGroup> _speedGroup;
};
