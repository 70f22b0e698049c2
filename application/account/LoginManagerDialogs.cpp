// The dialogs of the login manager.

#include "AppData.h"
#include "LoginDialog.h"
#include "LoginManager.h"
#include "RsaProvider.h"
#include "SignupDialog.h"
#include "UpdateDialog.h"

#include <QTimer>

bool LoginManager::loginWithGui(QWidget* parent, QString const& failure)
{
    if (_loginDialog) {
        _loginDialog->activateWindow();
        return false;
    }
    _appData.rsaProvider()->prepare(); // While the viewer types.
    _loginDialog = new LoginDialog(_appData, parent);
    QPointer<LoginDialog> const dialog = _loginDialog; // It may go with its parent while it is open.
    SettingsWriter& file = _appData.settings.file();
    QString const lastUser = SettingsWriter::Group(file)->value("application/lastUser").toString();
    dialog->fill(_newEmail.isEmpty() ? lastUser : _newEmail, _newPassword);
    dialog->setKeepSignedIn(
        SettingsWriter::Group(file, AppSettings::userGroup(lastUser))->value("signInAutomatically", false).toBool());
    connect(dialog, &LoginDialog::submitted, this, &LoginManager::submitLogin);
    connect(dialog, &LoginDialog::cancelled, this, &LoginManager::cancelLogin);
    connect(dialog, &LoginDialog::signupWanted, this, [this, dialog] {
        if (signupWithGui(dialog) && dialog)
            dialog->fill(_newEmail, _newPassword);
    });
    if (!failure.isEmpty())
        dialog->showError(failure);
    if (_updateDialog)
        QTimer::singleShot(0, this, &LoginManager::showUpdateAboveDialog); // Once this one is open.
    bool const isSignedIn = dialog->exec() == QDialog::Accepted;
    delete dialog.data();
    _newEmail.clear();
    _newPassword.clear();
    return isSignedIn;
}

void LoginManager::submitLogin()
{
    cancelLogin(); // An automatic one may be under way.
    _loginDialog->showProgress(tr("Signing in..."));
    login(_loginDialog->email(), _loginDialog->password(), false);
    _attempt.keepSignedIn = _loginDialog->keepSignedIn();
}

bool LoginManager::signupWithGui(QWidget* parent)
{
    if (_signupDialog) {
        _signupDialog->activateWindow();
        return false;
    }
    _signupDialog = new SignupDialog(_appData, parent);
    QPointer<SignupDialog> const dialog = _signupDialog;
    connect(dialog, &SignupDialog::submitted, this, &LoginManager::submitSignup);
    connect(dialog, &SignupDialog::cancelled, this, &LoginManager::cancelSignup);
    bool const isMade = dialog->exec() == QDialog::Accepted;
    if (isMade && dialog) {
        _newEmail = dialog->email();
        _newPassword = dialog->password();
    }
    delete dialog.data();
    return isMade;
}

void LoginManager::submitSignup()
{
    cancelSignup();
    _signupDialog->showProgress(tr("Creating the account..."));
    signup(_signupDialog->email(), _signupDialog->password(), _signupDialog->isEmailAllowed());
}

void LoginManager::onSignupCompleted(bool ok, QString const& text)
{
    emit signupCompleted(ok, text);
    if (_signupDialog && ok)
        _signupDialog->finish();
    else if (_signupDialog)
        _signupDialog->showError(text);
}

/// Each version is offered once in a run, but one that is needed each time.
void LoginManager::onUpdateAvailable(SoapLoginResponse const& response)
{
    bool const isKnown = response.updateVersion == _offeredVersion && !response.isUpdateCritical();
    if (_updateDialog || isKnown)
        return;
    _offeredVersion = response.updateVersion;
    _updateDialog = new UpdateDialog(_appData, response, _appData.mainWidget());
    if (_loginDialog)
        showUpdateAboveDialog();
    else
        _updateDialog->show();
}

/// The dialog for signing in is modal, and may stay open: only what is so as well, and came later, can be used.
void LoginManager::showUpdateAboveDialog()
{
    if (!_updateDialog)
        return;
    _updateDialog->hide(); // Modality changes for a window that is hidden.
    _updateDialog->setWindowModality(Qt::ApplicationModal);
    _updateDialog->show();
    _updateDialog->raise();
}
