#pragma once

#include <QObject>

#include <array>
#include <memory>
#include <vector>

class AppData;
class EffectsChain;
class EffectsLibrary;
class GLWidget;
class QAction;
class QMenu;
class QWidget;

/// The dialogs that the window offers.
enum class WindowDialog {
    About,
    Preferences,
    Tutorial,
    Keys,
    OpenStream,
    AddStreams,
    Invite,
    SupportInformation,
    TestConsole,
    VideoInformation,
    StreamBuffer,
    Effects,
};

inline constexpr int windowDialogCount = static_cast<int>(WindowDialog::Effects) + 1;

/// All dialogs of the window: each is made when it is first asked for, and only hidden when it is closed, so that
/// opening it again costs next to nothing. None keeps the viewer from the film.
///
/// Connects itself to the menu actions that stand for dialogs. For the others it has actions of its own: action()
/// gives the one of every dialog, for the window to put into its menus. Owns the effects, too, which play without
/// their dialog. The slots of the actions stand here rather than in the window. Main thread only.
class WindowDialogs : public QObject
{
    Q_OBJECT

public:
    /// All are borrowed. The window is the parent of all dialogs: what is left of them goes with it. To be destroyed
    /// before the surface.
    WindowDialogs(AppData& appData, GLWidget& surface, QWidget& window);
    ~WindowDialogs() override;

    /// Opens a dialog, or brings it to the front.
    void open(WindowDialog which);

    /// The dialog, made if need be.
    QWidget& dialog(WindowDialog which);
    /// Null as long as it has not been asked for.
    QWidget* existingDialog(WindowDialog which) const;

    /// What opens it from a menu.
    QAction* action(WindowDialog which) const;

    /// Fills an empty menu with the effects: all of them on and off, each of them, and their editor. It follows the
    /// library.
    void fillEffectsMenu(QMenu* menu);

signals:
    /// Something about the effects has gone wrong, in words that no dialog shows.
    void failed(QString words);

public slots:
    void onOpenVideoStream();
    /// The same dialog, with this title.
    void onOpenLatteStream();
    void onAddLatteStream();
    /// The dialogs go with the window, and come back with it as they were.
    void onWindowVisibilityChanged(bool visible);

private:
    void connectEffects();
    void createActions();
    void connectActions();
    void offerTutorial();
    QWidget* createTutorialWizard();

    AppData& _appData;
    GLWidget& _surface;
    QWidget& _window;
    std::unique_ptr<EffectsLibrary> _effects;
    std::unique_ptr<EffectsChain> _effectsChain;        ///< Shows what the library has.
    std::array<QWidget*, windowDialogCount> _dialogs{}; ///< The window's children.
    std::vector<QWidget*> _hiddenWithWindow;            ///< Of these.
    std::array<QAction*, windowDialogCount> _actions{}; ///< Of the settings, or this object's children.
};
