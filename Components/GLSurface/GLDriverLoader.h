#pragma once

#include <QThread>

/// Loads the OpenGL driver of the display on a thread of its own, while the main one makes the window: drivers bring
/// a compiler along, and linking that takes as long as the rest of the start. The first context then finds it there.
/// Where the platform is not X11, or there is no driver, nothing happens.
///
/// While libraries are linked no other can be, and no thread can be started: whatever does that goes first.
/// From construction to destruction, which waits for the thread. Main thread.
class GLDriverLoader : private QThread
{
public:
    GLDriverLoader();
    ~GLDriverLoader() override;

private:
    void run() override;
};
