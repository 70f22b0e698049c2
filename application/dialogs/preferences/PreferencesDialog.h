#pragma once

#include "AppSettings.h"
#include "Icons.h"
#include "OmbravisionDialog.h"

#include <functional>
#include <vector>

class PreferencesPage;
class QLabel;
class QListWidget;
class QStackedWidget;

/// The settings, by page. What is changed counts at once; Cancel gives back everything that was changed since the
/// dialog was opened, OK stores it. A page is made when it is first looked at. Main thread only.
class PreferencesDialog : public OmbravisionDialog
{
    Q_OBJECT

public:
    enum Page { General, Video, Sound, Network, Account, Alerts, Chat };
    static constexpr int pageCount = Chat + 1;

    PreferencesDialog(AppData& appData, QWidget* parent);

    void showPage(Page page);
    PreferencesPage* page(Page page);

    void accept() override;
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void addPage(QString const& title, Icon icon, std::function<PreferencesPage*()> make);
    void onPageChosen(int index);
    void showNote();
    void leaveUser(); ///< Somebody else signs in next, or nobody is signed in any more.

    struct Place {
        std::function<PreferencesPage*()> make;
        PreferencesPage* page = nullptr;
    };

    QListWidget* _list;
    QStackedWidget* _stack;
    QLabel* _note;
    bool _isBegun = false; ///< Neither accepted nor rejected yet: it may be hidden, and come back.
    std::vector<Place> _pages;
};
