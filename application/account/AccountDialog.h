#pragma once

#include "OmbravisionDialog.h"

#include <QString>

class QCheckBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QVBoxLayout;

/// What the dialogs of an account share: a form, a line that tells what is wrong, progress while the service is
/// asked, a button that asks it, and Cancel, which ends the asking first and closes the dialog the second time.
///
/// The owner calls showProgress(), showError() and finish(), and is told by signals. All texts are shown as they are.
class AccountDialog : public OmbravisionDialog
{
    Q_OBJECT

public:
    QString email() const;
    QString password() const;

    /// Locks the form until showError() or finish().
    void showProgress(QString const& text);
    bool isBusy() const { return _isBusy; }

    /// Lets the viewer try again.
    void showError(QString const& text);

    /// Closes the dialog: what the viewer wanted is done.
    void finish();

    /// Return in the form or a click on the button.
    void accept() override;
    void reject() override;

    /// Whether a text has the shape of an e-mail address.
    static bool isEmail(QString const& text);

signals:
    /// The form is complete, and the service is to be asked.
    void submitted();

    /// What is under way is to be ended.
    void cancelled();

protected:
    AccountDialog(AppData& appData, QString const& title, QString const& action, QWidget* parent);
    void closeEvent(QCloseEvent* event) override;

    QLineEdit* addPasswordField(QString const& label);
    void addCheckBox(QCheckBox* box);
    void addIntroduction(QString const& text);
    QLineEdit* emailField() const { return _email; }
    QLineEdit* passwordField() const { return _password; }
    QVBoxLayout* lowerPart() const { return _lowerPart; } ///< Between the form and the buttons.

    /// What is wrong with the form as it is, to be shown as one types; empty if there is nothing to say.
    virtual QString hint() const { return {}; }
    /// Whether the service can be asked with what the form has.
    virtual bool isComplete() const = 0;
    /// After each change of the form.
    void refresh();

private:
    void setBusy(bool isBusy);
    void tell(QString const& text, bool isError);

    QLabel* _introduction;
    QFormLayout* _form;
    QLineEdit* _email;
    QLineEdit* _password;
    QVBoxLayout* _lowerPart;
    QLabel* _message;
    QProgressBar* _progress;
    QPushButton* _action;
    bool _isBusy = false;
};
