#pragma once

#include "OmbravisionDialog.h"
#include "SoapUserChannels.h"

class QComboBox;
class QLabel;
class QLineEdit;

/// Asks for a channel of the viewer's own, which others can find: a name, the address of its stream, a word about it.
/// Main thread only.
class NewChannelDialog : public OmbravisionDialog
{
    Q_OBJECT

public:
    NewChannelDialog(AppData& appData, QWidget* parent);

    /// The fields as the service takes them.
    SoapUserChannels::Form form() const;

private:
    void refresh();
    /// What stands against it, in words; empty where there is nothing.
    QString fault() const;

    QLineEdit* const _name;
    QLineEdit* const _address;
    QLineEdit* const _description;
    QComboBox* const _kind;
    QLabel* const _message;
    QPushButton* _create = nullptr;
};
