#include "WindowKeys.h"

#include "AppSettings.h"

#include <QAction>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{

constexpr std::pair<int, MenuAction> tableKeys[] = {
    {Qt::Key_T, MenuAction::Tabs},
    {Qt::Key_M, MenuAction::Mute},
    {Qt::Key_F, MenuAction::FullScreen},
    {Qt::Key_W, MenuAction::CloseWindow},
    {Qt::Key_Up, MenuAction::IncreaseVolume},
    {Qt::Key_Down, MenuAction::DecreaseVolume},
    {Qt::Key_2, MenuAction::Speed50},
    {Qt::Key_3, MenuAction::Speed75},
    {Qt::Key_4, MenuAction::Speed100},
    {Qt::Key_5, MenuAction::Speed125},
    {Qt::Key_6, MenuAction::Speed150},
    {Qt::Key_7, MenuAction::Speed175},
    {Qt::Key_8, MenuAction::Speed200},
};

bool hasControlOnly(QKeyEvent const& event)
{
    return (event.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
}

} // namespace

QAction* WindowKeys::actionFor(int key) const
{
    auto const* const found = std::ranges::find(tableKeys, key, &std::pair<int, MenuAction>::first);
    return found == std::end(tableKeys) ? nullptr : _settings.action(found->second);
}

bool WindowKeys::isOurs(QKeyEvent const& event) const
{
    return hasControlOnly(event) && actionFor(event.key());
}

void WindowKeys::press(QKeyEvent const& event)
{
    if (event.isAutoRepeat())
        return;
    _heldKey = isOurs(event) ? event.key() : 0;
    _isEscapeDown = event.key() == Qt::Key_Escape;
}

void WindowKeys::forget()
{
    _heldKey = 0;
    _isEscapeDown = false;
}

bool WindowKeys::release(QKeyEvent const& event)
{
    if (event.isAutoRepeat())
        return false;
    bool const wasEscapeDown = std::exchange(_isEscapeDown, false);
    if (event.key() == Qt::Key_Escape && wasEscapeDown && _settings.showFullScreen()) {
        _settings.action(MenuAction::FullScreen)->trigger();
        return true;
    }
    bool const isHeld = _heldKey == event.key(); // The control key itself may come up first.
    if (isHeld)
        _heldKey = 0;
    if (!isHeld && !hasControlOnly(event))
        return false;
    if (event.key() == Qt::Key_T && _settings.showFullScreen())
        return true;
    QAction* const action = actionFor(event.key());
    if (action && action->isEnabled())
        action->trigger();
    return action != nullptr;
}
