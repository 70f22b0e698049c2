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
    QString lastUser() const;

    bool isSignedIn() const { return !_email.isEmpty(); }
    /// The e-mail address of who is signed in.
    QString email() const { return _email; }
    bool isSigningIn() const { return _isSigningIn; }
    /// Whether a dialog asks the viewer, and tells how it goes.
    bool isAsking() const { return _isAsking; }

    /// Without a dialog if `automatic`, and if the viewer has wanted that once; the dialogs' parent is `widget`. With
    /// one it runs an event loop.
    void signIn(QWidget* widget, bool automatic);
    /// Makes an account, and then signs in with it; who was signed in is not any more then.
    void signUp(QWidget* widget);
    void signOut(bool notify);

    /// Stores what belongs to the account, such as the channels that were open, without an end of it.
    void save();

signals:
    /// Somebody is about to be signed in, or not to be any more: the settings are still those of whoever was here.
    void aboutToChange();
    void signedInChanged();
    void signInStarted();
    /// It has ended, with somebody signed in or not.
    void signInEnded();

public slots:
    void onLoginStarted();
    void onAutoLoginCompleted(bool ok, QString const& text);
    void onSignInTimer();
    void onAutoSignInTimer();

private:
    void enableActions(bool enabled);
    void enter(QString const& email);
    void endSigningIn();

    static Logger* log;

    AppData& _appData;
    TimerFactory* const _timers;
    Timer* const _autoSignInTimer; ///< Of the factory, as is the next one.
    Timer* const _signInTimer;
    QString _email;   ///< Of who is signed in.
    QString _failure; ///< Of the automatic attempt, for the dialog that follows it.
    bool _isSigningIn = false;
    bool _isAsking = false;
};
