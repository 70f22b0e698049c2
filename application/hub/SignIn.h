#pragma once

#include <QObject>
#include <QString>

class AppData;
class Logger;
class QWidget;
class Timer;
class TimerFactory;

/// Whether somebody is signed in, and the ways there and back: by themselves, with dialogs, again after a failure.
/// What belongs to the account comes and goes with it: its settings and the directory of channels. Main thread only.
class SignIn : public QObject
{
    Q_OBJECT

public:
    static constexpr int autoSignInDelay = 10000; ///< ms; at system start-up the network may not be there yet.
    static constexpr int dialogDelay = 100;       ///< ms, from an automatic attempt that failed to the dialog.

    /// The timers are borrowed.
    SignIn(AppData& appData, TimerFactory* timers, QObject* parent = nullptr);
    ~SignIn() override;

    /// Who signed in last on this machine, by e-mail address; empty if nobody has yet.
    static QString lastUser();

    bool isSignedIn() const { return !_email.isEmpty(); }
    bool isSigningIn() const { return _isSigningIn; }

    /// Without a dialog if `automatic`, and if the viewer has wanted that once; the dialogs' parent is `widget`. With
    /// one it runs an event loop.
    void signIn(QWidget* widget, bool automatic);
    /// Makes an account, and then signs in with it.
    void signUp(QWidget* widget);
    void signOut(bool notify);

    /// Stores what belongs to the account, such as the channels that were open, without an end of it.
    void save();

signals:
    void signedInChanged();
    void signInStarted();

public slots:
    void onLoginStarted();
    void onAutoLoginCompleted(bool ok, QString const& text);
    void onSignInTimer();
    void onAutoSignInTimer();

private:
    void enableActions(bool enabled);
    void enter(QString const& email);

    static Logger* log;

    AppData& _appData;
    TimerFactory* const _timers;
    Timer* const _autoSignInTimer; ///< Of the factory, as is the next one.
    Timer* const _signInTimer;
    QString _email; ///< Of who is signed in.
    bool _isSigningIn = false;
};
