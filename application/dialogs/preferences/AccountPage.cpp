#include "AccountPage.h"

#include "AppData.h"
#include "LoginManager.h"
#include "SignIn.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace
{
constexpr int longestNick = 40;
}

AccountPage::AccountPage(AppData& appData) : PreferencesPage(appData)
{
    using V = SettingsValues;
    addSection(tr("Account"));
    _account = addNote({});
    _sign = new QPushButton(tr("Sign &in..."), this);
    _sign->setAutoDefault(false);
    _sign->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    addLine(_sign);
    connect(_sign, &QPushButton::clicked, this, [this] {
        bool const isSignedIn = this->appData().signIn()->isSignedIn();
        this->appData().settings.action(isSignedIn ? MenuAction::SignOut : MenuAction::SignIn)->trigger();
    });
    _automatic = addSwitch(tr("Sign in &automatically at the start"), &V::autoLogin);
    _asked = addNote(tr("You will be asked for your password once more."));
    connect(_automatic, &QCheckBox::toggled, this, &AccountPage::showAccount);
    addText(tr("&Name in chats:"), &V::chatNick, longestNick);
    addSection(tr("Security"));
    QCheckBox* const plain =
        addSwitch(tr("Allow &passwords to be sent where nothing keeps them secret"), &V::allowPlainCredentials);
    _warning =
        addNote(tr("Warning: whoever can listen on the way to the service reads your password then. Allow it only "
                   "for a service on a network that is all yours."));
    connect(plain, &QCheckBox::toggled, this, [this](bool on) {
        QFont font = _warning->font();
        font.setBold(on);
        _warning->setFont(font);
    });
    connect(&appData, &AppData::signedInChanged, this, &AccountPage::showAccount);
    showAccount();
}

void AccountPage::showAccount()
{
    SignIn const& signIn = *appData().signIn();
    bool const isSignedIn = signIn.isSignedIn();
    _account->setText(isSignedIn ? tr("Signed in as %1.").arg(appData().signIn()->email())
                                 : tr("Nobody is signed in."));
    _sign->setText(isSignedIn ? tr("Sign &out") : tr("Sign &in..."));
    _automatic->setEnabled(isSignedIn); // It is an account's.
    _asked->setVisible(isSignedIn && appData().settings.autoLogin() &&
                       !appData().loginManager()->hasStoredPassword(signIn.email()));
}
