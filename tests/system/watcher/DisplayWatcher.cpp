// Samples points on one row of the display and writes a line whenever one of them turns from dark to light or back:
//
//   display_watcher INTERVAL-MICROSECONDS Y X [X ...]
//
// A line holds the time (CLOCK_MONOTONIC, in seconds) and one digit for each point, 1 for light. Ends on SIGTERM, or
// when its output is closed.

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <span>
#include <string>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <vector>

namespace
{

constexpr double nanosecondsPerSecond = 1e9;

/// One row of the root window, in memory that the server writes to.
class Row
{
public:
    Row(Display* display, int y, int firstX, int lastX)
        : _display(display), _root(DefaultRootWindow(display)), _x(firstX), _y(y)
    {
        int const screen = DefaultScreen(display);
        _image = XShmCreateImage(display, DefaultVisual(display, screen),
                                 static_cast<unsigned int>(DefaultDepth(display, screen)), ZPixmap, nullptr,
                                 &_segment, static_cast<unsigned int>(lastX - firstX + 1), 1);
        _segment.shmid = shmget(IPC_PRIVATE, static_cast<size_t>(_image->bytes_per_line), IPC_CREAT | 0600);
        _segment.shmaddr = _image->data = static_cast<char*>(shmat(_segment.shmid, nullptr, 0));
        XShmAttach(display, &_segment);
        XSync(display, False);
        shmctl(_segment.shmid, IPC_RMID, nullptr); // It lives on while we are attached.
    }

    void update() { XShmGetImage(_display, _root, _image, _x, _y, AllPlanes); }

    bool isLight(int x) const
    {
        unsigned long const pixel = XGetPixel(_image, x - _x, 0);
        unsigned long const sum = ((pixel >> 16) & 0xff) + ((pixel >> 8) & 0xff) + (pixel & 0xff);
        return sum > 3UL * 127;
    }

private:
    Display* _display;
    Window _root;
    int _x;
    int _y;
    XImage* _image = nullptr;
    XShmSegmentInfo _segment = {};
};

double seconds(timespec const& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / nanosecondsPerSecond;
}

} // namespace

int main(int argc, char** argv)
{
    std::span const arguments(argv, static_cast<size_t>(argc));
    Display* const display = XOpenDisplay(nullptr);
    if (argc < 4 || !display || !XShmQueryExtension(display)) {
        std::fputs("usage: display_watcher INTERVAL-MICROSECONDS Y X [X ...], on a display with shared memory\n",
                   stderr);
        return 1;
    }
    long const interval = std::atol(arguments[1]) * 1000;
    std::vector<int> points;
    for (char const* argument : arguments.subspan(3))
        points.push_back(std::atoi(argument));
    auto const [first, last] = std::minmax_element(points.begin(), points.end());
    Row row(display, std::atoi(arguments[2]), *first, *last);

    std::string previous;
    timespec next = {};
    clock_gettime(CLOCK_MONOTONIC, &next);
    for (;;) {
        row.update();
        timespec now = {};
        clock_gettime(CLOCK_MONOTONIC, &now);
        std::string digits;
        for (int const x : points)
            digits += row.isLight(x) ? '1' : '0';
        if (digits != previous) {
            if (std::printf("%.6f %s\n", seconds(now), digits.c_str()) < 0 || std::fflush(stdout) != 0)
                return 0;
            previous = digits;
        }
        next.tv_nsec += interval;
        next.tv_sec += next.tv_nsec / 1000000000;
        next.tv_nsec %= 1000000000;
        if (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &next, nullptr) != 0)
            return 0;
    }
}
