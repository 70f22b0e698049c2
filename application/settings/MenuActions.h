#pragma once

#include <QList>

#include <array>
#include <memory>

class QAction;
class QActionGroup;

/// What the menus offer, in the order in which the actions are made.
enum class MenuAction {
    Record,
    VideoPostProcessing,
    EditVideoPostProcessing,
    Speed25,
    Speed50,
    Speed75,
    Speed100,
    Speed125,
    Speed150,
    Speed175,
    Speed200,
    SpeedCustom,
    HalfSize,
    NormalSize,
    DoubleSize,
    Stretch,
    TouchInside,
    TouchOutside,
    ChannelCarousel,
    FullScreen,
    Mute,
    TestChannels,
    RunAtStartup,
    IncreaseVolume,
    DecreaseVolume,
    ResetSpeed,
    IncreaseSpeed,
    DecreaseSpeed,
    SeekForwards,
    SeekBackwards,
    MenuBar,
    Tabs,
    ShowChat,
    SkinMode,
    AlwaysOnTop,
    OpenVideoFile,
    OpenVideoFiles,
    AddVideoFiles,
    OpenVideoStream,
    OpenLatteStream,
    AddLatteStream,
    AddRemoveChannels,
    Minimize,
    SignIn,
    SignOut,
    CreateAccount,
    Exit,
    About,
    Help,
    Tutorial,
    Support,
    Feedback,
    BuyPro,
    InviteFriend,
    SendSupportInformation,
    Preferences,
    ShowWindow,
    CloseWindow,
};

inline constexpr int menuActionCount = static_cast<int>(MenuAction::CloseWindow) + 1;

/// The actions of the program's menus, found by their number. Owns them; main thread only.
class MenuActions
{
public:
    MenuActions();
    ~MenuActions();

    /// Makes all actions anew.
    void create();
    void destroy();
    bool areCreated() const { return _drawModes != nullptr; }

    /// Null before create() and after destroy().
    QAction* at(MenuAction action) const;

    /// Sets a mark, if the actions exist. Nothing is triggered by it.
    void check(MenuAction action, bool checked) const;

    /// The six draw modes, in order of their numbers, which are their data.
    QList<QAction*> drawModes() const;
    /// The eight speeds from "0.25x" to "2x".
    QList<QAction*> speeds() const;

    /// The factor of a speed action.
    static double speedOf(QAction const* action);
    /// Shows which speed holds, and whether another can be chosen. "Custom" is seen only while none of the eight
    /// holds.
    void showSpeed(double speed, bool canChange) const;

private:
    QList<QAction*> range(MenuAction first, MenuAction last) const;

    std::array<std::unique_ptr<QAction>, menuActionCount> _actions;
    std::unique_ptr<QActionGroup> _speeds; ///< Groups go before the actions in them.
    std::unique_ptr<QActionGroup> _drawModes;
};
