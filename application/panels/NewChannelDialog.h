#pragma once

#include "OmbravisionDialog.h"
#include "SoapUserChannels.h"

class QComboBox;
class QLabel;
class QLineEdit;

/// Asks for a channel of the viewer's own, which others can find: a name, the address of its stream, a word about it.
/// It stays open, locked, while the service is asked: the owner calls showProgress(), and then showError(), with
/// which nothing of the form is lost, or finish(). Main thread only.
class NewChannelDialog : public OmbravisionDialog
{
    Q_OBJECT

public:
    NewChannelDialog(AppData& appData, QWidget* parent);

    /// The fields as the service takes them.
    SoapUserChannels::Form form() const;

    void showProgress(QString const& text);
    bool isBusy() const { return _isBusy; }
    /// Lets the viewer try again.
    void showError(QString const& text);
    void finish();

    void accept() override;

signals:
    /// The service is to be asked.
    void submitted();

private:
    void setBusy(bool isBusy);
    void tell(QString const& text);
    void refresh();
    /// What stands against it, in words; empty where there is nothing.
    QString fault() const;

    QLineEdit* const _name;
    QLineEdit* const _address;
    QLineEdit* const _description;
    QComboBox* const _kind;
    QLabel* const _message;
    QPushButton* _create = nullptr;
    bool _isBusy = false;
};
