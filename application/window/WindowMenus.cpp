#include "WindowMenus.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelAction.h"
#include "ChannelManager.h"
#include "Icons.h"
#include "Look.h"
#include "Mnemonics.h"
#include "WindowZoom.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenuBar>
#include <QShortcut>

#include <algorithm>

namespace
{

constexpr std::nullopt_t separator = std::nullopt; // Of a menu.

/// Those that are known by their sign as well.
constexpr std::pair<MenuAction, Icon> menuIcons[] = {
    {MenuAction::Record, Icon::Record},        {MenuAction::ChannelCarousel, Icon::Carousel},
    {MenuAction::SignIn, Icon::User},          {MenuAction::SignOut, Icon::SignOut},
    {MenuAction::OpenVideoFile, Icon::Open},   {MenuAction::OpenVideoStream, Icon::Link},
    {MenuAction::Preferences, Icon::Settings}, {MenuAction::Help, Icon::Info},
};

} // namespace

WindowMenus::WindowMenus(AppData& appData, WindowZoom const& zoom, QWidget& window)
    : QObject(&window), _appData(appData), _window(window), _bar(new QMenuBar(&window)),
      _contextMenu(new QMenu(&window)), _screenshot(new QAction(tr("Take Screenshot"), &window))
{
    _screenshot->setShortcut(QKeySequence("Ctrl+Shift+S"));
    _screenshot->setAutoRepeat(false);
    _screenshot->setIcon(Icons::icon(Icon::Screenshot));
    connect(_screenshot, &QAction::triggered, this, &WindowMenus::screenshotWanted);
    for (auto const& [action, icon] : menuIcons)
        _appData.settings.action(action)->setIcon(Icons::icon(icon));

    addMenu(tr("&File"), {MenuAction::OpenVideoFile, MenuAction::OpenVideoFiles, MenuAction::AddVideoFiles, separator,
                          MenuAction::OpenVideoStream, MenuAction::OpenLatteStream, MenuAction::AddLatteStream,
                          separator, MenuAction::SignIn, MenuAction::SignOut, MenuAction::CreateAccount, separator,
                          MenuAction::Minimize, MenuAction::CloseWindow, MenuAction::Exit});
    QMenu* const channels = addMenu(tr("&Channels"), {});
    connect(channels, &QMenu::aboutToShow, this, [this, channels] { fillChannels(channels); });
    createPlayback();
    createView(zoom);
    _options = addMenu(tr("&Options"),
                       {MenuAction::Preferences, separator, MenuAction::TestChannels, MenuAction::RunAtStartup});
    _help = addMenu(tr("&Help"), {MenuAction::Help, MenuAction::Tutorial, separator, MenuAction::Support,
                                  MenuAction::Feedback, MenuAction::SendSupportInformation, separator,
                                  MenuAction::InviteFriend, MenuAction::BuyPro, separator, MenuAction::About});
    createContextMenu();
    createKeys();

    Mnemonics::makeUnique(_bar->actions());
    for (QMenu* const menu : _window.findChildren<QMenu*>())
        if (menu != channels) // Their names come from outside, and are too many.
            connect(menu, &QMenu::aboutToShow, menu, [menu] { Mnemonics::makeUnique(menu->actions()); });
    // With the menu bar hidden, the shortcuts still work.
    for (QAction* const menu : _bar->actions())
        _window.addActions(menu->menu()->actions());
    _window.addActions(_appData.settings.actions().speeds());
    for (MenuAction const action : {MenuAction::ChannelCarousel, MenuAction::EditVideoPostProcessing})
        _window.addAction(_appData.settings.action(action));
}

void WindowMenus::add(QMenu* menu, std::initializer_list<Entry> entries)
{
    for (Entry const& entry : entries) {
        if (entry)
            menu->addAction(_appData.settings.action(*entry));
        else
            menu->addSeparator();
    }
}

QMenu* WindowMenus::addMenu(QString const& title, std::initializer_list<Entry> entries)
{
    QMenu* const menu = _bar->addMenu(title);
    add(menu, entries);
    return menu;
}

void WindowMenus::createPlayback()
{
    AppSettings const& settings = _appData.settings;
    _playback = addMenu(tr("&Playback"), {MenuAction::Mute, MenuAction::IncreaseVolume, MenuAction::DecreaseVolume,
                                          separator, MenuAction::SeekForwards, MenuAction::SeekBackwards, separator});
    _playback->insertAction(_playback->actions().constFirst(), settings.action(MenuAction::Record));
    _playback->insertSeparator(settings.action(MenuAction::Mute));
    QMenu* const speed = _playback->addMenu(tr("Speed"));
    speed->addActions(settings.actions().speeds());
    speed->addAction(settings.action(MenuAction::SpeedCustom));
    add(speed, {separator, MenuAction::ResetSpeed, MenuAction::IncreaseSpeed, MenuAction::DecreaseSpeed});
}

void WindowMenus::createView(WindowZoom const& zoom)
{
    AppSettings& settings = _appData.settings;
    _view = addMenu(tr("&View"), {MenuAction::FullScreen, MenuAction::Tabs, MenuAction::MenuBar, MenuAction::SkinMode,
                                  MenuAction::AlwaysOnTop, MenuAction::ShowChat, separator});
    _view->addMenu(tr("Draw Mode"))->addActions(settings.actions().drawModes());
    QMenu* const zoomMenu = _view->addMenu(tr("Zoom"));
    zoomMenu->addActions(zoom.actions());
    connect(zoomMenu, &QMenu::aboutToShow, &zoom, &WindowZoom::check);
    QAction* const perspective = _view->addAction(tr("Perspective"));
    perspective->setCheckable(true);
    connect(perspective, &QAction::triggered, &settings, &AppSettings::setPerspectiveMode);
    connect(&settings, &AppSettings::perspectiveChanged, perspective,
            [&settings, perspective] { perspective->setChecked(settings.perspectiveMode()); });
    _effects = _view->addMenu(tr("Effects"));
    _view->addSeparator();
    _view->addAction(_screenshot);
}

void WindowMenus::fillChannels(QMenu* menu)
{
    // When it is opened: a directory may have thousands of channels, and changes while nobody looks.
    menu->clear();
    ChannelManager& channels = *_appData.channelManager();
    int const count = qMin(channels.channelCount(), mostChannels);
    QSize const logo = QSize(Look::smallIcon, Look::smallIcon) * menu->devicePixelRatio();
    for (int i = 0; i < count; ++i) {
        ChannelAction* const action = channels.channelActions().action(channels.getChannelByIndex(i));
        action->showLogo(logo);
        menu->addAction(action);
    }
    QAction* words = nullptr;
    if (channels.channelCount() > count)
        words = menu->addAction(tr("%n more in the list of channels", nullptr, channels.channelCount() - count));
    else if (count == 0)
        words = menu->addAction(tr("No channels"));
    if (words)
        words->setEnabled(false);
    add(menu, {separator, MenuAction::ChannelCarousel, MenuAction::AddRemoveChannels});
}

void WindowMenus::createKeys()
{
    auto* const menus = new QAction(tr("To the menus"), &_window);
    menus->setShortcut(QKeySequence(Qt::Key_F10));
    menus->setAutoRepeat(false);
    connect(menus, &QAction::triggered, this, &WindowMenus::goToMenus);
    _window.addAction(menus);
    // Keyboards without the key for it have this one.
    auto* const contextMenu = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F10), &_window);
    contextMenu->setAutoRepeat(false);
    connect(contextMenu, &QShortcut::activated, this, [] {
        if (QWidget* const widget = QApplication::focusWidget()) {
            QPoint const middle = widget->rect().center();
            QApplication::postEvent(
                widget, new QContextMenuEvent(QContextMenuEvent::Keyboard, middle, widget->mapToGlobal(middle)));
        }
    });
}

/// Those of the bar; where that is hidden, the picture's menu has them all.
void WindowMenus::goToMenus()
{
    if (!_bar->isVisible()) {
        showContextMenu(_window.mapToGlobal(_window.rect().center()));
        QList<QAction*> const entries = _contextMenu->actions();
        auto const first = std::ranges::find_if(
            entries, [](QAction const* entry) { return entry->isVisible() && !entry->isSeparator(); });
        if (first != entries.end())
            _contextMenu->setActiveAction(*first);
        return;
    }
    // As the Alt key alone does it: Qt has no other way there that leads back to where the focus was.
    for (QEvent::Type const type : {QEvent::ShortcutOverride, QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, Qt::Key_Alt, type == QEvent::KeyRelease ? Qt::NoModifier : Qt::AltModifier);
        QApplication::sendEvent(&_window, &event);
    }
}

void WindowMenus::createContextMenu()
{
    AppSettings const& settings = _appData.settings;
    ChannelManager* const manager = _appData.channelManager();
    QAction* const pause = _contextMenu->addAction(QString());
    QAction* const previous = _contextMenu->addAction(Icons::icon(Icon::Previous), tr("Previous Channel"));
    QAction* const next = _contextMenu->addAction(Icons::icon(Icon::Next), tr("Next Channel"));
    QAction* const line = _contextMenu->addSeparator();
    connect(pause, &QAction::triggered, manager, [manager] { manager->setPaused(!manager->isPaused()); });
    connect(previous, &QAction::triggered, manager, [manager] { manager->openNeighbour(-1); });
    connect(next, &QAction::triggered, manager, [manager] { manager->openNeighbour(1); });
    connect(_contextMenu, &QMenu::aboutToShow, this, [manager, pause, previous, next, line] {
        Channel const* const channel = manager->activeChannel();
        bool const isPausable = channel && channel->isSeekable();
        bool const hasNeighbours = manager->channelCount() > 1;
        bool const isPaused = isPausable && channel->isPaused();
        pause->setText(isPaused ? tr("Play") : tr("Pause"));
        pause->setIcon(Icons::icon(isPaused ? Icon::Play : Icon::Pause));
        pause->setVisible(isPausable);
        previous->setVisible(hasNeighbours);
        next->setVisible(hasNeighbours);
        line->setVisible(isPausable || hasNeighbours);
    });
    for (MenuAction const action : {MenuAction::FullScreen, MenuAction::Mute, MenuAction::Record})
        _contextMenu->addAction(settings.action(action));
    _contextMenu->addAction(_screenshot);
    _contextMenu->addSeparator();
    for (QAction* const menu : _bar->actions())
        _contextMenu->addMenu(menu->menu());
    _contextMenu->addSeparator();
    _contextMenu->addAction(settings.action(MenuAction::Exit));
}
