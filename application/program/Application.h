#pragma once

#include "AppData.h"
#include "KeyRepeats.h"
#include "SingleApplication.h"
#include "TerminationSignals.h"
#include "Translations.h"

#include <QString>
#include <QStringList>

#include <memory>

class ArgumentList;
class DesktopAnnouncements;
class EventLoopWatchdog;
class Logger;
class Window;

/// The application object: one instance for each user, the hub and the one window.
class Application : public SingleApplication
{
    Q_OBJECT

public:
    /// What a later instance sends when it has nothing to play. Its text opens no file: the window is raised.
    static constexpr char const* wakeUpMessage = "Wake up!";

    /// Parses the switches; says which of them it does not know. Without -debug, standard output and error are then
    /// closed for good.
    Application(QString const& appId, int& argc, char** argv);
    ~Application() override;

    /// Makes the window and with it all components. Returns false, after a message box, on a system without OpenGL or
    /// without a system tray.
    bool initialize();

    /// Deletes the window, then the components.
    void uninitialize();

    Window* window() const { return _window.get(); }

    /// The message for a first instance: what this one was asked to play.
    QString messageForFirstInstance() const;

    bool event(QEvent* event) override;
    bool notify(QObject* receiver, QEvent* event) override;

public slots:
    /// Raises the window, and plays the files and addresses that come with the message.
    void onMessageReceived(QString const& message);

private:
    void parseSwitches(ArgumentList const& arguments);
    void parseDebugSwitch(ArgumentList const& arguments);
    static void tellUnknownSwitches(ArgumentList const& arguments);
    bool fail(char const* logText, QString const& text);
    static void closeStandardStreams();

    static Logger* log;

    KeyRepeats _keyRepeats;           ///< First: events come as long as there are members.
    Translations const _translations; ///< Before anything has texts.
    TerminationSignals _terminationSignals;
    AppData _appData;
    std::unique_ptr<DesktopAnnouncements> _announcements;
    std::unique_ptr<Window> _window;
    std::unique_ptr<EventLoopWatchdog> _eventLoopWatchdog; ///< Null unless its class is named to -debug.
    QStringList _names; ///< Files by absolute path, and addresses, from the command line.
};
