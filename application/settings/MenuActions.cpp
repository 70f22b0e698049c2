#include "MenuActions.h"

#include <QAction>
#include <QActionGroup>
#include <QCoreApplication>

namespace
{

enum class Kind { Command, Toggle };

struct Spec {
    char const* text;
    char const* shortcut; ///< Null for none.
    MenuAction action;
    Kind kind;
};

constexpr Spec specs[] = {
    {QT_TRANSLATE_NOOP("MenuActions", "Record"), nullptr, MenuAction::Record, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Video Post Processing"), nullptr, MenuAction::VideoPostProcessing,
     Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Edit Video Post Processing"), nullptr, MenuAction::EditVideoPostProcessing,
     Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "0.25x"), "Ctrl+1", MenuAction::Speed25, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "0.5x"), "Ctrl+2", MenuAction::Speed50, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "0.75x"), "Ctrl+3", MenuAction::Speed75, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "1x"), "Ctrl+4", MenuAction::Speed100, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "1.25x"), "Ctrl+5", MenuAction::Speed125, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "1.5x"), "Ctrl+6", MenuAction::Speed150, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "1.75x"), "Ctrl+7", MenuAction::Speed175, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "2x"), "Ctrl+8", MenuAction::Speed200, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Custom"), nullptr, MenuAction::SpeedCustom, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Half Size"), nullptr, MenuAction::HalfSize, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Normal Size"), nullptr, MenuAction::NormalSize, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Double Size"), nullptr, MenuAction::DoubleSize, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Stretch"), nullptr, MenuAction::Stretch, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Touch Inside"), nullptr, MenuAction::TouchInside, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Touch Outside"), nullptr, MenuAction::TouchOutside, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Channel Carousel"), "Ctrl+Space", MenuAction::ChannelCarousel, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Full Screen"), "Ctrl+F", MenuAction::FullScreen, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Mute"), "Ctrl+M", MenuAction::Mute, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Test Channels"), nullptr, MenuAction::TestChannels, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Run at Startup"), nullptr, MenuAction::RunAtStartup, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Increase Volume"), "Ctrl+Up", MenuAction::IncreaseVolume, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "Decrease Volume"), "Ctrl+Down", MenuAction::DecreaseVolume, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "Reset Speed"), nullptr, MenuAction::ResetSpeed, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "Increase Speed"), nullptr, MenuAction::IncreaseSpeed, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "Decrease Speed"), nullptr, MenuAction::DecreaseSpeed, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "Seek Forwards"), "Right", MenuAction::SeekForwards, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "Seek backwards"), "Left", MenuAction::SeekBackwards, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "Menu Bar"), nullptr, MenuAction::MenuBar, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Tabs"), "Ctrl+T", MenuAction::Tabs, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Show Chat"), nullptr, MenuAction::ShowChat, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "Skin Mode"), nullptr, MenuAction::SkinMode, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "Always on Top"), nullptr, MenuAction::AlwaysOnTop, Kind::Toggle},
    {QT_TRANSLATE_NOOP("MenuActions", "&Open Video File"), "Ctrl+O", MenuAction::OpenVideoFile, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Open Video Files"), nullptr, MenuAction::OpenVideoFiles, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Add Video Files"), nullptr, MenuAction::AddVideoFiles, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Open Video Stream"), "Ctrl+U", MenuAction::OpenVideoStream, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Open Latte Stream"), nullptr, MenuAction::OpenLatteStream, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Add Latte Stream"), nullptr, MenuAction::AddLatteStream, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Add/Remove channels"), nullptr, MenuAction::AddRemoveChannels, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Minimize"), nullptr, MenuAction::Minimize, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Sign In"), nullptr, MenuAction::SignIn, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Sign Out"), nullptr, MenuAction::SignOut, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Create Account"), nullptr, MenuAction::CreateAccount, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Exit"), "Ctrl+Q", MenuAction::Exit, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&About Ombravision"), nullptr, MenuAction::About, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Help"), nullptr, MenuAction::Help, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Tutorial"), nullptr, MenuAction::Tutorial, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Support"), nullptr, MenuAction::Support, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Feedback"), nullptr, MenuAction::Feedback, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Buy Ombravision Pro"), nullptr, MenuAction::BuyPro, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Invite Friend"), nullptr, MenuAction::InviteFriend, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "Send Support Information"), nullptr, MenuAction::SendSupportInformation,
     Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "Preferences"), nullptr, MenuAction::Preferences, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "&Show Window"), nullptr, MenuAction::ShowWindow, Kind::Command},
    {QT_TRANSLATE_NOOP("MenuActions", "Close Window"), "Ctrl+W", MenuAction::CloseWindow, Kind::Command},
};

constexpr size_t index(MenuAction action)
{
    return static_cast<size_t>(action);
}

constexpr bool isInOrder()
{
    for (size_t i = 0; i < std::size(specs); ++i)
        if (index(specs[i].action) != i)
            return false;
    return std::size(specs) == menuActionCount;
}
static_assert(isInOrder(), "the actions stand in the order of their numbers");

constexpr double speedStep = 0.25; // From each of the eight speeds to the next.

} // namespace

MenuActions::MenuActions() = default;

MenuActions::~MenuActions()
{
    destroy();
}

void MenuActions::create()
{
    destroy();
    for (Spec const& spec : specs) {
        auto action = std::make_unique<QAction>(QCoreApplication::translate("MenuActions", spec.text));
        action->setCheckable(spec.kind == Kind::Toggle);
        action->setAutoRepeat(false); // A held key acts once.
        if (spec.shortcut)
            action->setShortcut(QKeySequence(spec.shortcut));
        _actions[index(spec.action)] = std::move(action);
    }

    _speeds = std::make_unique<QActionGroup>(nullptr);
    double speed = 0.0;
    for (QAction* const action : speeds()) {
        action->setData(speed += speedStep);
        _speeds->addAction(action);
    }
    _speeds->addAction(at(MenuAction::SpeedCustom));
    showSpeed(1.0, true);

    _drawModes = std::make_unique<QActionGroup>(nullptr);
    int number = 0;
    for (QAction* const action : drawModes()) {
        action->setData(number++);
        _drawModes->addAction(action);
    }
}

void MenuActions::destroy()
{
    _speeds.reset();
    _drawModes.reset();
    for (auto& action : _actions)
        action.reset();
}

QAction* MenuActions::at(MenuAction action) const
{
    return _actions[index(action)].get();
}

void MenuActions::check(MenuAction action, bool checked) const
{
    if (QAction* const found = at(action))
        found->setChecked(checked);
}

QList<QAction*> MenuActions::drawModes() const
{
    return range(MenuAction::HalfSize, MenuAction::TouchOutside);
}

QList<QAction*> MenuActions::speeds() const
{
    return range(MenuAction::Speed25, MenuAction::Speed200);
}

QList<QAction*> MenuActions::range(MenuAction first, MenuAction last) const
{
    QList<QAction*> actions;
    for (size_t i = index(first); i <= index(last); ++i)
        if (_actions[i])
            actions.append(_actions[i].get());
    return actions;
}

double MenuActions::speedOf(QAction const* action)
{
    return action->data().toDouble();
}

void MenuActions::showSpeed(double speed, bool canChange) const
{
    QAction* const custom = at(MenuAction::SpeedCustom);
    if (!custom)
        return;
    custom->setChecked(true);
    for (QAction* const action : speeds()) {
        action->setEnabled(canChange);
        if (speedOf(action) == speed)
            action->setChecked(true);
    }
    custom->setVisible(custom->isChecked());
    for (MenuAction const action : {MenuAction::ResetSpeed, MenuAction::IncreaseSpeed, MenuAction::DecreaseSpeed})
        at(action)->setEnabled(canChange);
}
