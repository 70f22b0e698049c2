#pragma once

#include "AccountDialog.h"

/// Asks for the e-mail address and the password of an account.
class LoginDialog : public AccountDialog
{
    Q_OBJECT

public:
    explicit LoginDialog(AppData& appData, QWidget* parent = nullptr);

    /// Fills in what is known, and puts the cursor where the viewer goes on.
    void fill(QString const& email, QString const& password);

    bool keepSignedIn() const;
    void setKeepSignedIn(bool keep);

signals:
    /// The viewer has no account yet.
    void signupWanted();

protected:
    bool isComplete() const override;

private:
    QCheckBox* _keepSignedIn;
};
