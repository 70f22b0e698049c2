#pragma once

/// Whether the desktop has a system tray.
namespace SystemTray
{

constexpr int startUpTime = 30000; ///< ms that a desktop which starts has for it.

/// As Qt says, which looks once: to be asked when there may be one.
bool isAvailable();

/// Waits for one that appears, at most `ms`, in an event loop of its own, which ends with the application's. Whether
/// there is one.
bool waitFor(int ms);

} // namespace SystemTray
