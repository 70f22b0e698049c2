#include "LoginDialog.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

LoginDialog::LoginDialog(AppData& appData, QWidget* parent)
    : AccountDialog(appData, tr("Sign In"), tr("Sign &In"), parent),
      _keepSignedIn(new QCheckBox(tr("&Keep me signed in"), this))
{
    setObjectName("loginDialog");
    _keepSignedIn->setObjectName("keepSignedIn");
    addCheckBox(_keepSignedIn);
    auto* const signup = new QPushButton(tr("I have no account yet: &create one..."), this);
    signup->setObjectName("signup");
    signup->setProperty("locks", true);
    signup->setAutoDefault(false);
    connect(signup, &QPushButton::clicked, this, &LoginDialog::signupWanted);
    lowerPart()->addWidget(signup, 0, Qt::AlignLeft);
    refresh();
}

void LoginDialog::fill(QString const& email, QString const& password)
{
    emailField()->setText(email);
    passwordField()->setText(password);
    (email.isEmpty() ? emailField() : passwordField())->setFocus();
}

bool LoginDialog::keepSignedIn() const
{
    return _keepSignedIn->isChecked();
}

void LoginDialog::setKeepSignedIn(bool keep)
{
    _keepSignedIn->setChecked(keep);
}

bool LoginDialog::isComplete() const
{
    return !email().isEmpty() && !password().isEmpty();
}
