#include "SignupDialog.h"

#include <QCheckBox>
#include <QLineEdit>

SignupDialog::SignupDialog(AppData& appData, QWidget* parent)
    : AccountDialog(appData, tr("Create Account"), tr("&Create Account"), parent),
      _repetition(addPasswordField(tr("Password &again:"))),
      _emailAllowed(new QCheckBox(tr("&Send me news about programmes and channels"), this))
{
    setObjectName("signupDialog");
    _repetition->setObjectName("repetition");
    _emailAllowed->setObjectName("emailAllowed");
    addIntroduction(
        tr("Your e-mail address is your user name. It gets letters about your account and no others, unless "
           "you allow them here."));
    addCheckBox(_emailAllowed);
    refresh();
}

bool SignupDialog::isEmailAllowed() const
{
    return _emailAllowed->isChecked();
}

QString SignupDialog::hint() const
{
    qsizetype const missing = minimumPassword - password().size();
    if (!email().isEmpty() && !isEmail(email()))
        return tr("This is not an e-mail address yet.");
    if (!password().isEmpty() && missing > 0)
        return missing == 1 ? tr("The password needs one more character.")
                            : tr("The password needs %1 more characters.").arg(missing);
    if (!password().startsWith(_repetition->text()))
        return tr("The two passwords differ.");
    return {};
}

bool SignupDialog::isComplete() const
{
    return isEmail(email()) && password().size() >= minimumPassword && password() == _repetition->text();
}
