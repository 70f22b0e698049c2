#pragma once

#include <QString>

class Logger;
class QOpenGLContext;

/// The base of the wrappers for OpenGL extensions: whether one is there, and where its entry points are.
///
/// Each wrapper is a singleton, initialised once with a current context on the GL thread by its init(); after that
/// its flags may be read from any thread.
class GLExtension
{
public:
    virtual ~GLExtension() = default;

    /// Whether the extension is offered; false before init().
    bool isSupported() const { return _supported; }

    /// Texts of the current context, empty without one.
    static QString extensions();
    static QString version();
    static QString renderer();
    static QString vendor();

    /// Whether the current context offers the extension of this exact name.
    static bool isExtensionSupported(QString const& name);

protected:
    /// The address of an entry point of the context, or null.
    static void* getProcAddress(QOpenGLContext const* context, QString const& name);

    static Logger* log;

    bool _supported = false;
};
