#pragma once

#include <QByteArray>
#include <QThread>

struct _XDisplay;

/// Loads the system's OpenGL driver while the program makes its window, on a thread and a connection to the display
/// of its own. Drivers bring a compiler along, and linking that takes longer than the rest of the start; the first
/// context then finds it there. Where there is no X display or no driver nothing happens.
///
/// From construction to destruction, which waits for the thread. Made and destroyed on one thread.
class GLDriverLoader : private QThread
{
public:
    GLDriverLoader();
    ~GLDriverLoader() override;

private:
    void run() override;

    QByteArray _name;              ///< Of the display; set before the thread begins.
    _XDisplay* _display = nullptr; ///< Holds the driver. The thread's, and the destructor's after that.
};
