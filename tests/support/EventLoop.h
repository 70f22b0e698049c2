#pragma once

#include <functional>

/// Runs the thread's event loop until the condition holds, looking at it after each event. False when it did not come
/// to hold within ten seconds, which only a fault makes happen.
bool processEventsUntil(std::function<bool()> const& condition);

/// Runs the thread's event loop as long as there are events.
void processPendingEvents();
