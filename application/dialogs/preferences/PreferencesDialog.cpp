#include "PreferencesDialog.h"

#include "AccountPage.h"
#include "AlertsPage.h"
#include "AppData.h"
#include "ChatPage.h"
#include "GeneralPage.h"
#include "LoginManager.h"
#include "Look.h"
#include "NetworkPage.h"
#include "SignIn.h"
#include "SoundPage.h"
#include "VideoPage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QShowEvent>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

namespace
{

constexpr int comfortableLetters = 104;
constexpr int comfortableLines = 45;

} // namespace

PreferencesDialog::PreferencesDialog(AppData& appData, QWidget* parent)
    : OmbravisionDialog(appData, tr("Preferences"), parent), _list(new QListWidget(this)),
      _stack(new QStackedWidget(this)), _note(new QLabel(this))
{
    setObjectName("preferencesDialog");
    _list->setAccessibleName(tr("Pages"));
    _list->setIconSize({Look::icon, Look::icon});
    _list->setUniformItemSizes(true);
    _list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* const row = new QHBoxLayout;
    row->setSpacing(Look::margin);
    row->addWidget(_list);
    row->addWidget(_stack, 1);
    contents()->addLayout(row, 1);
    _note->setObjectName("note");
    _note->setTextFormat(Qt::PlainText);
    _note->setWordWrap(true);
    _note->setText(tr("You are not signed in. Each account keeps some of this for itself."));
    contents()->addWidget(_note);
    connect(&appData, &AppData::signedInChanged, this, &PreferencesDialog::showNote);
    connect(appData.signIn(), &SignIn::aboutToChange, this, &PreferencesDialog::leaveUser);
    addPage(tr("General"), Icon::Settings, [&appData] { return new GeneralPage(appData); });
    addPage(tr("Video"), Icon::Television, [&appData] { return new VideoPage(appData); });
    addPage(tr("Sound"), Icon::Volume, [&appData] { return new SoundPage(appData); });
    addPage(tr("Network"), Icon::Link, [&appData] { return new NetworkPage(appData); });
    addPage(tr("Account"), Icon::User, [&appData] { return new AccountPage(appData); });
    addPage(tr("Alerts"), Icon::Alert, [&appData] { return new AlertsPage(appData); });
    addPage(tr("Chat"), Icon::Chat, [&appData] { return new ChatPage(appData); });
    _list->setFixedWidth(_list->sizeHintForColumn(0) + 2 * _list->frameWidth() + Look::margin);

    QPushButton* const defaults = addButton(tr("&Defaults"), QDialogButtonBox::ResetRole);
    defaults->setToolTip(tr("This page as in a new installation"));
    defaults->setAutoDefault(false);
    connect(defaults, &QPushButton::clicked, this,
            [this] { page(static_cast<Page>(_list->currentRow()))->binding().setDefaults(); });
    addButton(QDialogButtonBox::Cancel);
    addButton(QDialogButtonBox::Ok)->setDefault(true);
    connect(_list, &QListWidget::currentRowChanged, this, &PreferencesDialog::onPageChosen);
    showPage(General);
    // Room for the largest page, so that the window stays as it is from page to page.
    QSize const comfortable(comfortableLetters * fontMetrics().averageCharWidth(),
                            comfortableLines * fontMetrics().lineSpacing());
    resize(sizeHint().expandedTo(comfortable.boundedTo(screen()->availableSize() * 0.9)));
}

void PreferencesDialog::addPage(QString const& title, Icon icon, std::function<PreferencesPage*()> make)
{
    auto* const item = new QListWidgetItem(Icons::icon(icon), title, _list);
    int const height = qMax(fontMetrics().lineSpacing(), Look::icon) + Look::grid;
    item->setSizeHint({item->sizeHint().width(), height});
    _stack->addWidget(new QWidget(_stack));
    _pages.push_back({std::move(make)});
}

void PreferencesDialog::showPage(Page page)
{
    _list->setCurrentRow(page);
}

PreferencesPage* PreferencesDialog::page(Page which)
{
    Place& place = _pages[which];
    if (place.page)
        return place.page;
    place.page = place.make();
    place.page->setAccessibleName(_list->item(which)->text());
    QWidget* const empty = _stack->widget(which);
    _stack->insertWidget(which, place.page);
    _stack->removeWidget(empty);
    delete empty;
    return place.page;
}

void PreferencesDialog::onPageChosen(int index)
{
    if (index < 0)
        return;
    QWidget* const shown = page(static_cast<Page>(index));
    for (int i = 0; i < _stack->count(); ++i) { // Only the one that is seen asks for room, and for a scroll bar.
        QSizePolicy::Policy const policy = _stack->widget(i) == shown ? QSizePolicy::Preferred : QSizePolicy::Ignored;
        _stack->widget(i)->setSizePolicy(policy, policy);
    }
    _stack->setCurrentWidget(shown);
    showNote();
    // A page that is made now may want more room, which is known a moment later.
    QTimer::singleShot(0, this, [this] { resize(size().expandedTo(sizeHint())); });
}

void PreferencesDialog::showNote()
{
    auto const current = static_cast<size_t>(_list->currentRow());
    PreferencesPage* const shown = current < _pages.size() ? _pages[current].page : nullptr;
    _note->setVisible(shown && shown->binding().hasUserSetting() && !appData().signIn()->isSignedIn());
}

void PreferencesDialog::leaveUser()
{
    if (!_isBegun)
        return; // All of it is accepted.
    for (Place const& place : _pages)
        if (place.page)
            place.page->binding().leaveUser();
}

void PreferencesDialog::showEvent(QShowEvent* event)
{
    OmbravisionDialog::showEvent(event);
    if (event->spontaneous() || std::exchange(_isBegun, true))
        return; // It was minimised, or hidden with the window.
    for (Place const& place : _pages)
        if (place.page)
            place.page->binding().forget();
}

void PreferencesDialog::accept()
{
    _isBegun = false;
    bool hasChanged = false;
    for (Place const& place : _pages) {
        if (!place.page)
            continue;
        place.page->binding().commit();
        hasChanged = place.page->binding().hasChanged() || hasChanged;
    }
    OmbravisionDialog::accept();
    if (!hasChanged)
        return;
    appData().settings.saveGlobalSettings();
    if (!appData().signIn()->isSignedIn())
        return appData().settings.saveGuestSettings();
    QString const email = appData().signIn()->email();
    appData().settings.saveUserSettings(email);
    if (!appData().settings.autoLogin())
        appData().loginManager()->removeStoredPassword(email);
}

void PreferencesDialog::reject()
{
    _isBegun = false;
    for (Place const& place : _pages)
        if (place.page)
            place.page->binding().revert();
    OmbravisionDialog::reject();
}
