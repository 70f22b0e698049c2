#include "GLDriverLoader.h"

#include <GL/glx.h>
#include <X11/Xlib.h>

GLDriverLoader::GLDriverLoader()
{
    start();
}

GLDriverLoader::~GLDriverLoader()
{
    wait();
    if (_display)
        XCloseDisplay(_display);
}

void GLDriverLoader::run()
{
    _display = XOpenDisplay(nullptr);
    if (!_display)
        return;
    // What a screen can do is the driver's to say.
    int const wanted[] = {GLX_RENDER_TYPE, GLX_RGBA_BIT, None};
    int count = 0;
    if (GLXFBConfig* const configurations = glXChooseFBConfig(_display, DefaultScreen(_display), wanted, &count))
        XFree(configurations);
}
