#include "GLExtension.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <QOpenGLContext>
#include <QStringList>

#include <algorithm>
#include <qopengl.h>

Logger* GLExtension::log = LoggerManager::logger();

namespace
{
QString contextText(GLenum name)
{
    if (!QOpenGLContext::currentContext())
        return {};
    return QString::fromLatin1(reinterpret_cast<char const*>(glGetString(name)));
}
} // namespace

QString GLExtension::extensions()
{
    return contextText(GL_EXTENSIONS);
}

QString GLExtension::version()
{
    return contextText(GL_VERSION);
}

QString GLExtension::renderer()
{
    return contextText(GL_RENDERER);
}

QString GLExtension::vendor()
{
    return contextText(GL_VENDOR);
}

bool GLExtension::isSoftwareRenderer()
{
    static QStringList const names = {"llvmpipe", "softpipe", "swrast", "Software Rasterizer"}; // Mesa's.
    QString const name = renderer();
    return std::any_of(names.cbegin(), names.cend(), [&name](QString const& part) { return name.contains(part); });
}

bool GLExtension::isExtensionSupported(QString const& name)
{
    return !name.isEmpty() && extensions().split(' ').contains(name);
}

GLExtension::EntryPoint GLExtension::getProcAddress(QOpenGLContext const* context, QString const& name)
{
    return context ? context->getProcAddress(name.toLatin1()) : nullptr;
}

void GLExtension::setResolved(QString const& name, bool allFound)
{
    _supported = isExtensionSupported(name);
    _initOK = _supported && allFound;
    if (_supported && !allFound) {
        LOG_WARNING("%s is offered without all of its functions and will not be used", qPrintable(name));
        _supported = false;
    }
}
