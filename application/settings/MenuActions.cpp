#include "MenuActions.h"

#include <QAction>
#include <QActionGroup>
#include <QCoreApplication>

namespace
{

enum class Kind { Command, Toggle };

struct Spec {
    MenuAction action;
    char const* text;
    char const* shortcut; ///< Null for none.
    Kind kind;
};

constexpr Spec specs[] = {
    {MenuAction::Record, "Record", nullptr, Kind::Toggle},
    {MenuAction::VideoPostProcessing, "Video Post Processing", nullptr, Kind::Toggle},
    {MenuAction::EditVideoPostProcessing, "Edit Video Post Processing", nullptr, Kind::Command},
    {MenuAction::Speed25, "0.25x", "Ctrl+1", Kind::Toggle},
    {MenuAction::Speed50, "0.5x", "Ctrl+2", Kind::Toggle},
    {MenuAction::Speed75, "0.75x", "Ctrl+3", Kind::Toggle},
    {MenuAction::Speed100, "1x", "Ctrl+4", Kind::Toggle},
    {MenuAction::Speed125, "1.25x", "Ctrl+5", Kind::Toggle},
    {MenuAction::Speed150, "1.5x", "Ctrl+6", Kind::Toggle},
    {MenuAction::Speed175, "1.75x", "Ctrl+7", Kind::Toggle},
    {MenuAction::Speed200, "2x", "Ctrl+8", Kind::Toggle},
    {MenuAction::SpeedCustom, "Custom", nullptr, Kind::Toggle},
    {MenuAction::HalfSize, "Half Size", nullptr, Kind::Toggle},
    {MenuAction::NormalSize, "Normal Size", nullptr, Kind::Toggle},
    {MenuAction::DoubleSize, "Double Size", nullptr, Kind::Toggle},
    {MenuAction::Stretch, "Stretch", nullptr, Kind::Toggle},
    {MenuAction::TouchInside, "Touch Inside", nullptr, Kind::Toggle},
    {MenuAction::TouchOutside, "Touch Outside", nullptr, Kind::Toggle},
    {MenuAction::ChannelCarousel, "Channel Carousel", "Ctrl+Space", Kind::Toggle},
    {MenuAction::FullScreen, "Full Screen", "Ctrl+F", Kind::Toggle},
    {MenuAction::Mute, "Mute", "Ctrl+M", Kind::Toggle},
    {MenuAction::TestChannels, "Test Channels", nullptr, Kind::Toggle},
    {MenuAction::RunAtStartup, "Run at Startup", nullptr, Kind::Toggle},
    {MenuAction::IncreaseVolume, "Increase Volume", "Ctrl+Up", Kind::Command},
    {MenuAction::DecreaseVolume, "Decrease Volume", "Ctrl+Down", Kind::Command},
    {MenuAction::ResetSpeed, "Reset Speed", nullptr, Kind::Command},
    {MenuAction::IncreaseSpeed, "Increase Speed", nullptr, Kind::Command},
    {MenuAction::DecreaseSpeed, "Decrease Speed", nullptr, Kind::Command},
    {MenuAction::SeekForwards, "Seek Forwards", "Right", Kind::Command},
    {MenuAction::SeekBackwards, "Seek backwards", "Left", Kind::Command},
    {MenuAction::MenuBar, "Menu Bar", nullptr, Kind::Toggle},
    {MenuAction::Tabs, "Tabs", "Ctrl+T", Kind::Toggle},
    {MenuAction::ShowChat, "Show Chat", nullptr, Kind::Command},
    {MenuAction::SkinMode, "Skin Mode", nullptr, Kind::Toggle},
    {MenuAction::AlwaysOnTop, "Always on Top", nullptr, Kind::Toggle},
    {MenuAction::OpenVideoFile, "&Open Video File", "Ctrl+O", Kind::Command},
    {MenuAction::OpenVideoFiles, "&Open Video Files", nullptr, Kind::Command},
    {MenuAction::AddVideoFiles, "&Add Video Files", nullptr, Kind::Command},
    {MenuAction::OpenVideoStream, "&Open Video Stream", "Ctrl+U", Kind::Command},
    {MenuAction::OpenLatteStream, "&Open Latte Stream", nullptr, Kind::Command},
    {MenuAction::AddLatteStream, "&Add Latte Stream", nullptr, Kind::Command},
    {MenuAction::AddRemoveChannels, "&Add/Remove channels", nullptr, Kind::Command},
    {MenuAction::Minimize, "&Minimize", nullptr, Kind::Command},
    {MenuAction::SignIn, "&Sign In", nullptr, Kind::Command},
    {MenuAction::SignOut, "&Sign Out", nullptr, Kind::Command},
    {MenuAction::CreateAccount, "&Create Account", nullptr, Kind::Command},
    {MenuAction::Exit, "&Exit", "Ctrl+Q", Kind::Command},
    {MenuAction::About, "&About Ombravision", nullptr, Kind::Command},
    {MenuAction::Help, "&Help", nullptr, Kind::Command},
    {MenuAction::Tutorial, "&Tutorial", nullptr, Kind::Command},
    {MenuAction::Support, "&Support", nullptr, Kind::Command},
    {MenuAction::Feedback, "&Feedback", nullptr, Kind::Command},
    {MenuAction::BuyPro, "&Buy Ombravision Pro", nullptr, Kind::Command},
    {MenuAction::InviteFriend, "&Invite Friend", nullptr, Kind::Command},
    {MenuAction::SendSupportInformation, "Send Support Information", nullptr, Kind::Command},
    {MenuAction::Preferences, "Preferences", nullptr, Kind::Command},
    {MenuAction::ShowWindow, "&Show Window", nullptr, Kind::Command},
    {MenuAction::CloseWindow, "Close Window", "Ctrl+W", Kind::Toggle},
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
