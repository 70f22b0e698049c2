#pragma once

#include "PreferencesPage.h"

class QLabel;

/// How chats look: the size of the text, and a colour for each kind of it, in a plain window and in the skin.
class ChatPage : public PreferencesPage
{
    Q_OBJECT

public:
    explicit ChatPage(AppData& appData);

private:
    void addColours();
    void addSample();
    void showSample();

    QLabel* _sample = nullptr;
};
