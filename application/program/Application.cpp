#include "Application.h"

#include "ArgumentList.h"
#include "DesktopAnnouncements.h"
#include "DetachedThreads.h"
#include "EventLoopWatchdog.h"
#include "GLWidget.h"
#include "LocalhostInfo.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "OwnChannels.h"
#include "ReadableStyle.h"
#include "SystemTray.h"
#include "Window.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QSettings>
#include <QTimer>
#include <QUrl>

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

Logger* Application::log = LoggerManager::logger();

namespace
{

/// A name as another process, in another directory, understands it.
QString absoluteName(QString const& name)
{
    return QFileInfo::exists(name) || !OwnChannels::isAddress(name) ? QFileInfo(name).absoluteFilePath() : name;
}

/// That of the texts, in which numbers and dates are written, too.
QLocale chosenLocale()
{
    QLocale const locale = Translations::localeOf(AppSettings::storedLanguage());
    QLocale::setDefault(locale);
    return locale;
}

bool isAlive = false;

/// A library that loses the display ends the process from wherever it stands. What other libraries do at the end of a
/// process is then done under the threads that still use them, and crashes.
void endAtOnce()
{
    if (!isAlive)
        return;
    // No error: those go out by a socket, and what that needs may be gone already.
    LoggerManager::logger()->logMessage(Logger::Warning, __FILE__, __LINE__, "The display is gone. Exiting");
    ::_exit(EXIT_FAILURE);
}

} // namespace

Application::Application(QString const& appId, int& argc, char** argv)
    : SingleApplication(SingleInstance::idOfProfile(appId), argc, argv),
      _keyRepeats([this](QObject* receiver, QEvent* event) { SingleApplication::notify(receiver, event); }),
      _translations(chosenLocale())
{
    Q_INIT_RESOURCE(ombravision);
    setQuitOnLastWindowClosed(false);
    setStyle(new ReadableStyle);
    // The surface is a native window in one that is drawn as a whole; what lies beside it need not be another.
    setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    // quit() would ask the window first, and that refuses to be closed.
    connect(&_terminationSignals, &TerminationSignals::received, this, [] { QCoreApplication::exit(0); });
    AppSettings const& settings = _appData.settings;
    setOrganizationName(settings.organisation());
    setOrganizationDomain(settings.organisationDomain());
    setApplicationName(settings.applicationName());
    setApplicationVersion(settings.version());
    QSettings::setDefaultFormat(QSettings::IniFormat);

    ArgumentList const arguments(argc, argv);
    for (QString const& name : arguments.positionalArguments())
        _names.append(absoluteName(name));
    log->setLevel(Logger::Info);
    log->setMethod(Logger::RollingFile);
    log->setHostname(LocalhostInfo().name());
    LOG_INFO("\n\n***************** Starting Ombravision *****************\n");
    LOG_INFO("Version: %s", qPrintable(applicationVersion()));
    tellUnknownSwitches(arguments);
    parseSwitches(arguments);
    isAlive = true;
    std::atexit(&endAtOnce);
    DetachedThreads::setAtEnd(&endAtOnce);
}

Application::~Application()
{
    isAlive = false;
    _eventLoopWatchdog.reset();
    uninitialize();
    LOG_INFO("\n\n***************** Exit Ombravision *****************");
}

void Application::tellUnknownSwitches(ArgumentList const& arguments)
{
    for (QString const& name : arguments.unknownSwitches()) {
        std::fprintf(stderr, "ombravision: there is no switch %s; see ombravision --help\n", qPrintable(name));
        LOG_WARNING("There is no switch %s", qUtf8Printable(name));
    }
}

void Application::parseDebugSwitch(ArgumentList const& arguments)
{
    if (!arguments.isGiven("-debug")) {
        closeStandardStreams();
        return;
    }
    log->setLevel(Logger::Debug);
    QStringList const classes = arguments.debugClasses();
    for (QString const& name : classes)
        log->showClass(name);
    if (classes.contains("EventLoop"))
        _eventLoopWatchdog = std::make_unique<EventLoopWatchdog>();
    _appData.settings.setDebugMode(true);
}

void Application::parseSwitches(ArgumentList const& arguments)
{
    AppSettings& settings = _appData.settings;
    auto const isGiven = [&arguments](char const* name) { return arguments.isGiven(name); };

    parseDebugSwitch(arguments);
    if (isGiven("-demo")) {
        settings.setDemoMode(true);
        LOG_INFO("Debug mode is enabled");
    }
    if (isGiven("-idkfa")) {
        settings.setGodMode(true);
        LOG_INFO("God mode is enabled");
    }
    if (isGiven("-startup")) {
        settings.setStartupMode(true);
        LOG_INFO("Running from system startup");
    }
    if (isGiven("-fullscreen")) {
        settings.setStartFullScreen(true);
        LOG_INFO("Start Fullscreen mode is enabled");
    }
}

void Application::closeStandardStreams()
{
    ::close(STDOUT_FILENO);
    ::close(STDERR_FILENO);
    // Keep both numbers occupied by something that refuses to be written to: a file or socket opened later would
    // otherwise land there and receive whatever a library prints.
    int const nothing = ::open("/dev/null", O_RDONLY);
    for (int const number : {STDOUT_FILENO, STDERR_FILENO})
        if (nothing != number)
            ::dup2(nothing, number);
    if (nothing > STDERR_FILENO)
        ::close(nothing);
}

bool Application::initialize()
{
    SingleApplication::initialize(false);
    // A session starts its programs in any order.
    bool const hasTray =
        _appData.settings.startupMode() ? SystemTray::waitFor(SystemTray::startUpTime) : SystemTray::isAvailable();
    if (hasTray)
        _window = std::make_unique<Window>(_appData); // The driver is loaded meanwhile.
    if (!GLWidget::hasOpenGL())
        return fail("System does not have openGL installed. Exiting",
                    tr("This system does not support opengl. Exiting"));
    if (!hasTray)
        return fail("System does not support a system tray. Exiting",
                    tr("This system does not support a system tray."));
    connect(this, &SingleApplication::messageReceived, this, &Application::onMessageReceived);
    _window->open(_names);
    _window->show();
    if (_appData.settings.startFullScreen())
        _appData.settings.setShowFullScreen(true);
    // Dialogs run event loops of their own, which have to end within that of the application.
    if (_names.isEmpty())
        QTimer::singleShot(0, &_appData, &AppData::begin);
    QTimer::singleShot(0, this, [this] { _announcements = std::make_unique<DesktopAnnouncements>(_appData); });
    return true;
}

bool Application::fail(char const* logText, QString const& text)
{
    LOG_ERROR("%s", logText);
    QMessageBox::critical(nullptr, tr("Ombravision"), text, QMessageBox::Ok);
    return false;
}

void Application::uninitialize()
{
    _announcements.reset();
    _window.reset();
    _appData.uninitialize();
}

QString Application::messageForFirstInstance() const
{
    QStringList lines(wakeUpMessage);
    for (QString const& name : _names)
        lines.append(QString::fromLatin1(QUrl::toPercentEncoding(name, "/:")));
    return lines.join('\n');
}

void Application::onMessageReceived(QString const& message)
{
    if (!_window)
        return;
    _window->showWindow();
    QStringList lines = message.split('\n', Qt::SkipEmptyParts);
    if (lines.isEmpty() || lines.takeFirst() != wakeUpMessage)
        return;
    for (QString& line : lines)
        line = QUrl::fromPercentEncoding(line.toLatin1());
    _window->open(lines);
}

bool Application::event(QEvent* event)
{
    return SingleApplication::event(event);
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    bool const isKeys = (receiver->isWindowType() && event->spontaneous()) || event->type() == QEvent::Shortcut;
    return (isKeys && _keyRepeats.take(receiver, event)) || SingleApplication::notify(receiver, event);
}
