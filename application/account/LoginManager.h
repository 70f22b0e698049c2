#pragma once

#include "OmbravisionUser.h"
#include "SoapLoginResponse.h"
#include "SoapService.h"

#include <QObject>
#include <QPointer>
#include <QString>

class AppData;
class Logger;
class LoginDialog;
class QSettings;
class QWidget;
class SignupDialog;
class SoapLogin;
class SoapSignup;
class UpdateDialog;

/// Signs the viewer in and makes accounts, with dialogs or without, and hands what the service allows to the
/// settings.
///
/// A password is kept in memory for as long as an attempt takes or a dialog is open, and stored, enciphered, only if
/// the viewer wants to stay signed in. Main thread only. The settings must have been loaded before this is made.
class LoginManager : public QObject
{
    Q_OBJECT

public:
    explicit LoginManager(AppData& appData, QObject* parent = nullptr);
    ~LoginManager() override;

    /// Where the calls of an account go, as the settings say. The access manager is the application's.
    SoapService service() const;

    /// Asks the service, unless it is being asked. `automatic` says that nobody has typed this just now.
    void login(QString const& email, QString const& password, bool automatic);

    /// Signs in who was signed in last, if they want that and their password can be read. False if not: nothing
    /// follows then.
    bool autoLogin();

    /// Whether the service has said itself how the last attempt ended; false where it was not reached.
    bool wasAnswered() const { return _wasAnswered; }

    /// Asks the viewer until they are signed in or have cancelled; true in the first case. The failure, if there is
    /// one, is why it comes to this, in words. Runs an event loop.
    bool loginWithGui(QWidget* parent, QString const& failure = {});

    /// Asks the service for an account, unless it is being asked.
    void signup(QString const& email, QString const& password, bool emailAllowed);

    /// Asks the viewer until they have an account or have cancelled; true in the first case. The next dialog for
    /// signing in knows it. Runs an event loop.
    bool signupWithGui(QWidget* parent);

    /// End what is under way, silently.
    void cancelLogin();
    void cancelSignup();

    /// Who is signed in; the null user when nobody is.
    OmbravisionUser user() const { return _user; }
    /// Nobody is signed in any more.
    void forgetUser() { _user = OmbravisionUser::Null(); }

    /// What the service knows a user on a machine by: the SHA-256 of both texts, as hexadecimal digits. The logger
    /// bears it as the name of this machine from then on.
    QString nodeId(QString const& email, QString const& machineId);

    /// The password that is stored in the group of a user; a null string if there is none that can be read.
    QString readUserPassword(QSettings& settings);

    /// Whether a password of a user is stored, to be signed in by themselves.
    bool hasStoredPassword(QString const& email) const;
    void removeStoredPassword(QString const& email);

signals:
    void loginStarted();

    /// An attempt has ended, with the e-mail address or with what went wrong, in words.
    void loginCompleted(bool ok, QString text);
    /// The same, once more, for one that autoLogin() began.
    void autoLoginCompleted(bool ok, QString text);
    void signupCompleted(bool ok, QString text);

private slots:
    void onLoginResponse(bool ok, SoapLoginResponse const& response);
    void onLoginCompleted(bool ok, QString const& text);
    void onUpdateAvailable(SoapLoginResponse const& response);
    void onSignupCompleted(bool ok, QString const& text);

private:
    /// One sign-in, from the request to the answer.
    struct Attempt {
        QString email;
        QString password;
        QString nodeId;
        bool isAutomatic = false;
        bool keepSignedIn = false;
    };

    void makeUser(SoapLoginResponse const& response);
    void pushSettings(SoapLoginResponse const& response);
    void fail(QString const& text);
    void remember();
    void showUpdateAboveDialog();
    void storeOnceThereIsAKey(QString const& email, QString const& password);
    void tellPasswordIsNotKept();
    void storePassword(QString const& email, QString const& password);
    void submitLogin();
    void submitSignup();

    static Logger* log;

    AppData& _appData;
    SoapLogin* const _soapLogin;
    SoapSignup* const _soapSignup;
    Attempt _attempt;
    bool _wasAnswered = false;
    OmbravisionUser _user;
    QString _offeredVersion; ///< The update that the viewer has been told of.
    QPointer<LoginDialog> _loginDialog;
    QPointer<SignupDialog> _signupDialog;
    QPointer<UpdateDialog> _updateDialog;
    QString _newEmail; ///< The account that has just been made, until the dialog for signing in is closed.
    QString _newPassword;
};
