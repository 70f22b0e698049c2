#pragma once

#include "OmbravisionDialog.h"

class QComboBox;
class QLabel;
class QPushButton;

/// Asks for the address of a stream, with those that were opened before at hand, says while one types what is wrong
/// with it, and plays it, in place of what plays or beside it. Main thread only.
class OpenStreamDialog : public OmbravisionDialog
{
    Q_OBJECT

public:
    static constexpr int historyLength = 20;

    OpenStreamDialog(AppData& appData, QWidget* parent);

    /// In place of what plays.
    void accept() override;

    /// Addresses as they are kept: the new one first, without user and password, each once.
    static QStringList extended(QStringList const& history, QString const& address);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void play(bool beside);
    void check();
    void fillHistory();

    QComboBox* _address;
    QLabel* _words;
    QPushButton* _open;
    QPushButton* _beside;
    QPushButton* _forget;
};
