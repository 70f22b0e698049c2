#pragma once

#include <QString>

class Logger;
class QOpenGLContext;

/// The base of the wrappers for OpenGL extensions: whether one is there, and where its entry points are.
///
/// Each wrapper is a singleton, initialised with a current context on the GL thread by its init(); after that its
/// flags may be read from any thread. Its functions are called on the GL thread, and only when initOK().
class GLExtension
{
public:
    virtual ~GLExtension() = default;
    GLExtension(GLExtension const&) = delete;
    GLExtension& operator=(GLExtension const&) = delete;

    /// Whether the extension is offered and whole; false before init().
    bool isSupported() const { return _supported; }

    /// Whether init() found every entry point.
    bool initOK() const { return _initOK; }

    /// Texts of the current context, empty without one.
    static QString extensions();
    static QString version();
    static QString renderer();
    static QString vendor();

    /// Whether the current context draws on the processor instead of a graphics card.
    static bool isSoftwareRenderer();

    /// Whether the current context offers the extension of this exact name.
    static bool isExtensionSupported(QString const& name);

protected:
    using EntryPoint = void (*)();

    GLExtension() = default;

    /// The address of an entry point of the context, or null.
    static EntryPoint getProcAddress(QOpenGLContext const* context, QString const& name);

    /// Stores the address of an entry point in a function pointer. Returns whether there is one.
    template<typename Function>
    static bool resolve(Function& function, QOpenGLContext const* context, QString const& name)
    {
        function = reinterpret_cast<Function>(getProcAddress(context, name));
        return function != nullptr;
    }

    /// Ends an init(): sets the flags for the extension of this name. An extension that lacks entry points does not
    /// count as supported.
    void setResolved(QString const& name, bool allFound);

    static Logger* log;

private:
    bool _supported = false;
    bool _initOK = false;
};
