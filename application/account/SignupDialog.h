#pragma once

#include "AccountDialog.h"

/// Asks for what a new account needs, and says as one types what is still missing.
class SignupDialog : public AccountDialog
{
    Q_OBJECT

public:
    static constexpr int minimumPassword = 8; ///< characters

    explicit SignupDialog(AppData& appData, QWidget* parent = nullptr);

    /// Whether the viewer wants letters that are not about the account.
    bool isEmailAllowed() const;

protected:
    QString hint() const override;
    bool isComplete() const override;

private:
    QLineEdit* _repetition;
    QCheckBox* _emailAllowed;
};
