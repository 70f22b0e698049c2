#include "GLDriverLoader.h"

#include <QGuiApplication>

#include <GL/glx.h>
#include <X11/Xlib.h>

GLDriverLoader::GLDriverLoader()
{
    start();
}

GLDriverLoader::~GLDriverLoader()
{
    wait();
}

/// On Qt's own connection, which is locked for each call: what it knows of the driver is kept with it.
void GLDriverLoader::run()
{
    auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    Display* const display = x11 ? x11->display() : nullptr;
    if (!display)
        return;
    // What a screen can do is the driver's to say.
    int const wanted[] = {GLX_RENDER_TYPE, GLX_RGBA_BIT, None};
    int count = 0;
    if (GLXFBConfig* const configurations = glXChooseFBConfig(display, DefaultScreen(display), wanted, &count))
        XFree(configurations);
}
