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
    {"Record", nullptr, MenuAction::Record, Kind::Toggle},
    {"Video Post Processing", nullptr, MenuAction::VideoPostProcessing, Kind::Toggle},
    {"Edit Video Post Processing", nullptr, MenuAction::EditVideoPostProcessing, Kind::Command},
    {"0.25x", "Ctrl+1", MenuAction::Speed25, Kind::Toggle},
    {"0.5x", "Ctrl+2", MenuAction::Speed50, Kind::Toggle},
    {"0.75x", "Ctrl+3", MenuAction::Speed75, Kind::Toggle},
    {"1x", "Ctrl+4", MenuAction::Speed100, Kind::Toggle},
    {"1.25x", "Ctrl+5", MenuAction::Speed125, Kind::Toggle},
    {"1.5x", "Ctrl+6", MenuAction::Speed150, Kind::Toggle},
    {"1.75x", "Ctrl+7", MenuAction::Speed175, Kind::Toggle},
    {"2x", "Ctrl+8", MenuAction::Speed200, Kind::Toggle},
    {"Custom", nullptr, MenuAction::SpeedCustom, Kind::Toggle},
    {"Half Size", nullptr, MenuAction::HalfSize, Kind::Toggle},
    {"Normal Size", nullptr, MenuAction::NormalSize, Kind::Toggle},
    {"Double Size", nullptr, MenuAction::DoubleSize, Kind::Toggle},
    {"Stretch", nullptr, MenuAction::Stretch, Kind::Toggle},
    {"Touch Inside", nullptr, MenuAction::TouchInside, Kind::Toggle},
    {"Touch Outside", nullptr, MenuAction::TouchOutside, Kind::Toggle},
    {"Channel Carousel", "Ctrl+Space", MenuAction::ChannelCarousel, Kind::Toggle},
    {"Full Screen", "Ctrl+F", MenuAction::FullScreen, Kind::Toggle},
    {"Mute", "Ctrl+M", MenuAction::Mute, Kind::Toggle},
    {"Test Channels", nullptr, MenuAction::TestChannels, Kind::Toggle},
    {"Run at Startup", nullptr, MenuAction::RunAtStartup, Kind::Toggle},
    {"Increase Volume", "Ctrl+Up", MenuAction::IncreaseVolume, Kind::Command},
    {"Decrease Volume", "Ctrl+Down", MenuAction::DecreaseVolume, Kind::Command},
    {"Reset Speed", nullptr, MenuAction::ResetSpeed, Kind::Command},
    {"Increase Speed", nullptr, MenuAction::IncreaseSpeed, Kind::Command},
    {"Decrease Speed", nullptr, MenuAction::DecreaseSpeed, Kind::Command},
    {"Seek Forwards", "Right", MenuAction::SeekForwards, Kind::Command},
    {"Seek backwards", "Left", MenuAction::SeekBackwards, Kind::Command},
    {"Menu Bar", nullptr, MenuAction::MenuBar, Kind::Toggle},
    {"Tabs", "Ctrl+T", MenuAction::Tabs, Kind::Toggle},
    {"Show Chat", nullptr, MenuAction::ShowChat, Kind::Command},
    {"Skin Mode", nullptr, MenuAction::SkinMode, Kind::Toggle},
    {"Always on Top", nullptr, MenuAction::AlwaysOnTop, Kind::Toggle},
    {"&Open Video File", "Ctrl+O", MenuAction::OpenVideoFile, Kind::Command},
    {"&Open Video Files", nullptr, MenuAction::OpenVideoFiles, Kind::Command},
    {"&Add Video Files", nullptr, MenuAction::AddVideoFiles, Kind::Command},
    {"&Open Video Stream", "Ctrl+U", MenuAction::OpenVideoStream, Kind::Command},
    {"&Open Latte Stream", nullptr, MenuAction::OpenLatteStream, Kind::Command},
    {"&Add Latte Stream", nullptr, MenuAction::AddLatteStream, Kind::Command},
    {"&Add/Remove channels", nullptr, MenuAction::AddRemoveChannels, Kind::Command},
    {"&Minimize", nullptr, MenuAction::Minimize, Kind::Command},
    {"&Sign In", nullptr, MenuAction::SignIn, Kind::Command},
    {"&Sign Out", nullptr, MenuAction::SignOut, Kind::Command},
    {"&Create Account", nullptr, MenuAction::CreateAccount, Kind::Command},
    {"&Exit", "Ctrl+Q", MenuAction::Exit, Kind::Command},
    {"&About Ombravision", nullptr, MenuAction::About, Kind::Command},
    {"&Help", nullptr, MenuAction::Help, Kind::Command},
    {"&Tutorial", nullptr, MenuAction::Tutorial, Kind::Command},
    {"&Support", nullptr, MenuAction::Support, Kind::Command},
    {"&Feedback", nullptr, MenuAction::Feedback, Kind::Command},
    {"&Buy Ombravision Pro", nullptr, MenuAction::BuyPro, Kind::Command},
    {"&Invite Friend", nullptr, MenuAction::InviteFriend, Kind::Command},
    {"Send Support Information", nullptr, MenuAction::SendSupportInformation, Kind::Command},
    {"Preferences", nullptr, MenuAction::Preferences, Kind::Command},
    {"&Show Window", nullptr, MenuAction::ShowWindow, Kind::Command},
    {"Close Window", "Ctrl+W", MenuAction::CloseWindow, Kind::Toggle},
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
