#include "WindowDialogs.h"

#include "AboutDialog.h"
#include "AddStreamsDialog.h"
#include "AppData.h"
#include "BufferWindow.h"
#include "ChannelManager.h"
#include "EffectsChain.h"
#include "EffectsDialog.h"
#include "EffectsLibrary.h"
#include "EffectsMenu.h"
#include "GLWidget.h"
#include "InviteDialog.h"
#include "KeysDialog.h"
#include "OpenStreamDialog.h"
#include "PreferencesDialog.h"
#include "SignIn.h"
#include "SupportDialog.h"
#include "TestConsole.h"
#include "TutorialDialog.h"
#include "VideoInformationDialog.h"

#include <QAction>
#include <QApplication>
#include <QMenu>

#include <utility>

namespace
{

constexpr size_t place(WindowDialog which)
{
    return static_cast<size_t>(which);
}

/// The menu action that opens a dialog, for those that have one.
constexpr std::pair<WindowDialog, MenuAction> menuEntries[] = {
    {WindowDialog::About, MenuAction::About},
    {WindowDialog::Preferences, MenuAction::Preferences},
    {WindowDialog::Tutorial, MenuAction::Tutorial},
    {WindowDialog::Keys, MenuAction::Help},
    {WindowDialog::OpenStream, MenuAction::OpenVideoStream},
    {WindowDialog::AddStreams, MenuAction::AddLatteStream},
    {WindowDialog::Invite, MenuAction::InviteFriend},
    {WindowDialog::SupportInformation, MenuAction::SendSupportInformation},
    {WindowDialog::Effects, MenuAction::EditVideoPostProcessing},
};

} // namespace

WindowDialogs::WindowDialogs(AppData& appData, GLWidget& surface, QWidget& window)
    : _appData(appData), _surface(surface), _window(window),
      _effects(std::make_unique<EffectsLibrary>(appData.settings.dataDirectory() + "/Effects")),
      _effectsChain(
          std::make_unique<EffectsChain>(appData, *_effects, surface, QCoreApplication::applicationFilePath()))
{
    createActions();
    connectActions();
    connectEffects();
    // Once the window is there: no thread can be started while the driver is linked.
    QMetaObject::invokeMethod(_effects.get(), &EffectsLibrary::load, Qt::QueuedConnection);
    connect(appData.signIn(), &SignIn::signInEnded, this, &WindowDialogs::offerTutorial, Qt::QueuedConnection);
    connect(&appData, &AppData::channelsUpdated, this, &WindowDialogs::offerTutorial, Qt::QueuedConnection);
}

WindowDialogs::~WindowDialogs()
{
    for (QWidget* const dialog : _dialogs)
        delete dialog; // They know the effects, which go next.
}

void WindowDialogs::connectEffects()
{
    auto const tell = [this](QString const& words) {
        QWidget const* const editor = existingDialog(WindowDialog::Effects);
        if (!words.isEmpty() && !(editor && editor->isVisible()))
            emit failed(words);
    };
    connect(_effects.get(), &EffectsLibrary::failed, this, tell);
    connect(_effectsChain.get(), &EffectsChain::examined, this, [tell](QString const& name, QString const& words) {
        if (!words.isEmpty())
            tell(QString("%1: %2").arg(name, words));
    });
}

void WindowDialogs::createActions()
{
    for (auto const& [which, action] : menuEntries)
        _actions[place(which)] = _appData.settings.action(action);
    auto const add = [this](WindowDialog which, QString const& text, QKeySequence const& keys = {}) {
        auto* const action = new QAction(text, this);
        action->setShortcut(keys);
        action->setAutoRepeat(false);
        _actions[place(which)] = action;
        _window.addAction(action); // Its keys work while the menu bar is hidden.
    };
    add(WindowDialog::TestConsole, tr("Test Console"));
    add(WindowDialog::VideoInformation, tr("Video Information"), QKeySequence("Ctrl+I"));
    add(WindowDialog::StreamBuffer, tr("Stream Buffer"), QKeySequence("Ctrl+B"));
    _appData.settings.action(MenuAction::Preferences)->setShortcut(QKeySequence("Ctrl+,"));
    _appData.settings.action(MenuAction::EditVideoPostProcessing)->setShortcut(QKeySequence("Ctrl+E"));
    _appData.settings.action(MenuAction::Help)->setShortcut(QKeySequence(Qt::Key_F1));
}

void WindowDialogs::connectActions()
{
    connect(action(WindowDialog::OpenStream), &QAction::triggered, this, &WindowDialogs::onOpenVideoStream);
    connect(_appData.settings.action(MenuAction::OpenLatteStream), &QAction::triggered, this,
            &WindowDialogs::onOpenLatteStream);
    connect(action(WindowDialog::AddStreams), &QAction::triggered, this, &WindowDialogs::onAddLatteStream);
    for (int i = 0; i < windowDialogCount; ++i) {
        auto const which = static_cast<WindowDialog>(i);
        if (which == WindowDialog::OpenStream || which == WindowDialog::AddStreams)
            continue;
        connect(action(which), &QAction::triggered, this, [this, which] { open(which); });
    }
    connect(&_appData.settings, &AppSettings::testModeChanged, this, [this] {
        if (_appData.settings.testMode())
            open(WindowDialog::TestConsole);
    });
}

void WindowDialogs::open(WindowDialog which)
{
    QWidget& widget = dialog(which);
    widget.show();
    widget.raise();
    widget.activateWindow();
}

QWidget& WindowDialogs::dialog(WindowDialog which)
{
    QWidget*& dialog = _dialogs[place(which)];
    if (dialog)
        return *dialog;
    switch (which) {
    case WindowDialog::About:
        dialog = new AboutDialog(_appData, &_window);
        break;
    case WindowDialog::Preferences:
        dialog = new PreferencesDialog(_appData, &_window);
        break;
    case WindowDialog::Tutorial:
        dialog = createTutorialWizard();
        break;
    case WindowDialog::Keys:
        dialog = new KeysDialog(_appData, &_window);
        break;
    case WindowDialog::OpenStream:
        dialog = new OpenStreamDialog(_appData, &_window);
        break;
    case WindowDialog::AddStreams:
        dialog = new AddStreamsDialog(_appData, &_window);
        break;
    case WindowDialog::Invite:
        dialog = new InviteDialog(_appData, &_window);
        break;
    case WindowDialog::SupportInformation:
        dialog = new SupportDialog(_appData, _surface, &_window);
        break;
    case WindowDialog::TestConsole:
        dialog = new TestConsole(_appData, &_window);
        break;
    case WindowDialog::VideoInformation:
        dialog = new VideoInformationDialog(_appData, &_window);
        break;
    case WindowDialog::StreamBuffer:
        dialog = new BufferWindow(_appData, &_window);
        break;
    case WindowDialog::Effects:
        dialog = new EffectsDialog(_appData, *_effects, *_effectsChain, &_window);
        break;
    }
    return *dialog;
}

QWidget* WindowDialogs::createTutorialWizard()
{
    return new TutorialDialog(_appData, &_window);
}

void WindowDialogs::onOpenVideoStream()
{
    dialog(WindowDialog::OpenStream).setWindowTitle(tr("Open Video Stream"));
    open(WindowDialog::OpenStream);
}

void WindowDialogs::onOpenLatteStream()
{
    dialog(WindowDialog::OpenStream).setWindowTitle(tr("Open Latte Stream"));
    open(WindowDialog::OpenStream);
}

void WindowDialogs::onAddLatteStream()
{
    open(WindowDialog::AddStreams);
}

void WindowDialogs::onWindowVisibilityChanged(bool visible)
{
    if (visible) {
        for (QWidget* const dialog : std::exchange(_hiddenWithWindow, {}))
            dialog->show();
        return;
    }
    for (QWidget* const dialog : _dialogs)
        if (dialog && dialog->isVisible()) {
            dialog->hide();
            _hiddenWithWindow.push_back(dialog);
        }
}

QWidget* WindowDialogs::existingDialog(WindowDialog which) const
{
    return _dialogs[place(which)];
}

QAction* WindowDialogs::action(WindowDialog which) const
{
    return _actions[place(which)];
}

void WindowDialogs::fillEffectsMenu(QMenu* menu)
{
    new EffectsMenu(*_effects, _appData.settings, menu); // The menu's child.
}

/// Once in this installation, when nothing else asks for the viewer, and there is something to see behind it.
void WindowDialogs::offerTutorial()
{
    AppSettings const& settings = _appData.settings;
    bool const isReady = (_appData.signIn()->isSignedIn() || settings.demoMode()) &&
                         _appData.channelManager()->firstChannel() != nullptr;
    if (settings.seenTutorial29() || !isReady || !_window.isVisible() || _window.isMinimized() ||
        settings.showFullScreen() || QApplication::activeModalWidget() || existingDialog(WindowDialog::Tutorial))
        return;
    open(WindowDialog::Tutorial);
}
