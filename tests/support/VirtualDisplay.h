#pragma once

#include <sys/types.h>

/// Starts a virtual X display on a free number, unless DISPLAY names one already, and ends it with itself.
/// Made before the application object; exits the program when there is no Xvfb.
class VirtualDisplay
{
public:
    VirtualDisplay();
    ~VirtualDisplay();
    VirtualDisplay(VirtualDisplay const&) = delete;
    VirtualDisplay& operator=(VirtualDisplay const&) = delete;

private:
    pid_t _server = 0;
};
