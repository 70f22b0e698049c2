// The menu actions of the settings.

#include "AppSettings.h"

#include <QAction>
#include <QActionGroup>

#include <array>

namespace
{

constexpr std::array<char const*, 8> speeds = {"0.25x", "0.5x", "0.75x", "1x", "1.25x", "1.5x", "1.75x", "2x"};
constexpr std::array<char const*, 6> drawModes = {"Half Size", "Normal Size",  "Double Size",
                                                  "Stretch",   "Touch Inside", "Touch Outside"};
constexpr int normalSpeedIndex = 3;

} // namespace

AppSettings::ActionSpec const AppSettings::actionSpecs[] = {
    {"Record", nullptr, true},
    {"Video Post Processing", nullptr, true},
    {"Full Screen", "Ctrl+F", true},
    {"Mute", "Ctrl+M", true},
    {"Run at Startup", nullptr, true},
    {"Increase Volume", "Ctrl+Up", false},
    {"Decrease Volume", "Ctrl+Down", false},
    {"Reset Speed", nullptr, false},
    {"Increase Speed", nullptr, false},
    {"Decrease Speed", nullptr, false},
    {"Seek Forwards", "Right", false},
    {"Seek backwards", "Left", false},
    {"Menu Bar", nullptr, true},
    {"Always on Top", nullptr, true},
    {"&Open Video File", "Ctrl+O", false},
    {"&Open Video Files", nullptr, false},
    {"&Add Video Files", nullptr, false},
    {"&Open Video Stream", "Ctrl+U", false},
    {"&Minimize", nullptr, false},
    {"&Exit", "Ctrl+Q", false},
    {"&About Ombravision", nullptr, false},
    {"&Show Window", nullptr, false},
    {"Close Window", "Ctrl+W", true},
};

void AppSettings::createActions()
{
    destroyActions();
    for (ActionSpec const& spec : actionSpecs) {
        auto* const action = new QAction(tr(spec.text), this);
        action->setObjectName(spec.text);
        action->setCheckable(spec.checkable);
        if (spec.shortcut)
            action->setShortcut(QKeySequence(spec.shortcut));
        _actions.append(action);
    }

    _speedGroup = std::make_unique<QActionGroup>(nullptr);
    for (size_t i = 0; i < speeds.size(); ++i) {
        QAction* const action = _speedGroup->addAction(speeds[i]);
        action->setCheckable(true);
        action->setShortcut(QKeySequence(QStringLiteral("Ctrl+%1").arg(i + 1)));
        action->setData(0.25 * static_cast<double>(i + 1));
    }
    _speedGroup->actions().at(normalSpeedIndex)->setChecked(true);

    _drawModeGroup = std::make_unique<QActionGroup>(nullptr);
    for (size_t i = 0; i < drawModes.size(); ++i) {
        QAction* const action = _drawModeGroup->addAction(tr(drawModes[i]));
        action->setCheckable(true);
        action->setData(static_cast<int>(i));
    }
    _drawModeGroup->actions().at(_drawMode)->setChecked(true);

    check("Menu Bar", _showMenuBar);
    check("Run at Startup", _runAtStartup);
}

void AppSettings::destroyActions()
{
    qDeleteAll(_actions);
    _actions.clear();
    _speedGroup.reset();
    _drawModeGroup.reset();
}

QAction* AppSettings::action(QString const& text) const
{
    for (QAction* const action : _actions)
        if (action->objectName() == text)
            return action;
    return nullptr;
}

QList<QAction*> AppSettings::drawModeActions() const
{
    return _drawModeGroup ? _drawModeGroup->actions() : QList<QAction*>();
}

QList<QAction*> AppSettings::speedActions() const
{
    return _speedGroup ? _speedGroup->actions() : QList<QAction*>();
}

double AppSettings::speedOf(QAction const* action)
{
    return action->data().toDouble();
}

void AppSettings::showSpeed(double speed, bool canChange)
{
    for (QAction* const action : speedActions()) {
        action->setEnabled(canChange);
        if (speedOf(action) == speed)
            action->setChecked(true);
    }
    for (char const* const text : {"Reset Speed", "Increase Speed", "Decrease Speed"})
        action(text)->setEnabled(canChange);
}

void AppSettings::check(QString const& text, bool checked)
{
    if (QAction* const mirrored = action(text))
        mirrored->setChecked(checked);
}
