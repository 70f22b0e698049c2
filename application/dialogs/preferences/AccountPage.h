#pragma once

#include "PreferencesPage.h"

class QPushButton;

/// Who is signed in, how, and under which name in chats.
class AccountPage : public PreferencesPage
{
    Q_OBJECT

public:
    explicit AccountPage(AppData& appData);

private:
    void showAccount();

    QLabel* _account;
    QPushButton* _sign;
    QCheckBox* _automatic;
    QLabel* _asked;
    QLabel* _warning;
};
