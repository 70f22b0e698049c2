#include "GLDriverLoader.h"

#include <QGuiApplication>

#include <GL/glx.h>
#include <X11/Xlib.h>

GLDriverLoader::GLDriverLoader()
{
    auto const* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11)
        return;
    _name = DisplayString(x11->display()); // Which need not be the environment's.
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
    _display = XOpenDisplay(_name.constData());
    if (!_display)
        return;
    // What a screen can do is the driver's to say.
    int const wanted[] = {GLX_RENDER_TYPE, GLX_RGBA_BIT, None};
    int count = 0;
    if (GLXFBConfig* const configurations = glXChooseFBConfig(_display, DefaultScreen(_display), wanted, &count))
        XFree(configurations);
}
