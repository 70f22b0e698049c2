#include "TrayIcon.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "ChannelTitle.h"
#include "Icons.h"
#include "ResourceImage.h"
#include "SignIn.h"

namespace
{
constexpr int trayTellTime = 8000; // ms
} // namespace

TrayIcon::TrayIcon(AppData& appData)
    : _appData(appData), _icon(QPixmap::fromImage(ResourceImage::png(":/Resources/Ombravision.png")))
{
    fillMenu(); // A tray may want to see it before it opens.
    connect(&_menu, &QMenu::aboutToShow, this, &TrayIcon::fillMenu);
    _icon.setContextMenu(&_menu);
    connect(&_icon, &QSystemTrayIcon::activated, this, &TrayIcon::onActivated);
    connect(&_icon, &QSystemTrayIcon::messageClicked, this, &TrayIcon::activated);
    connect(&_appData, &AppData::channelOpened, this, &TrayIcon::onChannelOpened);
    connect(&_appData, &AppData::channelChanged, this, &TrayIcon::updateToolTip);
    connect(&_appData, &AppData::channelsUpdated, this, &TrayIcon::onChannelsUpdated);
    updateToolTip();
}

bool TrayIcon::isVisible() const
{
    return _icon.isVisible() && QSystemTrayIcon::isSystemTrayAvailable();
}

bool TrayIcon::tell(QString const& title, QString const& text)
{
    if (!_icon.isVisible() || !QSystemTrayIcon::supportsMessages())
        return false;
    _icon.showMessage(title, text, QSystemTrayIcon::Information, trayTellTime);
    return true;
}

void TrayIcon::onChannelOpened(Channel* channel)
{
    QString const id = channel->desc.rootId();
    _recent.removeAll(id);
    _recent.prepend(id);
    _recent = _recent.mid(0, mostRecent);
}

void TrayIcon::onChannelsUpdated()
{
    updateToolTip();
    ChannelManager const& channels = *_appData.channelManager();
    if (_hasFormer || !channels.channelsLoaded())
        return;
    _hasFormer = true;
    for (QString const& id : channels.lastChannelIds())
        if (!_recent.contains(id) && _recent.size() < mostRecent)
            _recent.append(id);
}

void TrayIcon::fillMenu()
{
    _menu.clear();
    for (QString const& id : _recent) {
        Channel const* const channel = _appData.channelManager()->getChannelByRootId(id);
        if (!channel)
            continue;
        QString title = ChannelTitle::shown(channel->desc.title(), ChannelTitle::longestInMenu);
        QAction* const action = _menu.addAction(title.replace('&', "&&"));
        action->setIcon(Icons::icon(Icon::Television));
        action->setCheckable(true);
        action->setChecked(_appData.channelManager()->isChannelOpen(channel));
        connect(action, &QAction::triggered, this, [this, id] { emit channelChosen(id); });
    }
    _menu.addSeparator();
    AppSettings const& settings = _appData.settings;
    _menu.addAction(settings.action(MenuAction::ShowWindow));
    _menu.addAction(settings.action(MenuAction::Mute));
    bool const isSignedIn = _appData.signIn()->isSignedIn();
    _menu.addAction(settings.action(isSignedIn ? MenuAction::SignOut : MenuAction::SignIn));
    _menu.addSeparator();
    _menu.addAction(settings.action(MenuAction::Exit));
}

void TrayIcon::updateToolTip()
{
    Channel const* const channel = _appData.channelManager()->activeChannel();
    QString const name = QStringLiteral("Ombravision");
    _icon.setToolTip(
        channel ? QString(name + '\n' + ChannelTitle::shown(channel->desc.title(), ChannelTitle::longestInMenu))
                : name);
}

void TrayIcon::onActivated(QSystemTrayIcon::ActivationReason reason)
{
    if (reason == QSystemTrayIcon::Trigger)
        emit activated();
}
