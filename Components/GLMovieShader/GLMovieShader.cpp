#include "GLMovieShader.h"

#include "GLARBFragmentShader.h"
#include "GLARBShaderObjects.h"
#include "GLContextScope.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <qopengl.h>

Logger* GLMovieShader::log = LoggerManager::logger();

namespace
{
/// Uses a program for as long as it lives, then the fixed functions.
class ProgramScope
{
public:
    explicit ProgramScope(unsigned int program) { GLARBShaderObjects::instance()->useProgramObject(program); }
    ~ProgramScope() { GLARBShaderObjects::instance()->useProgramObject(0); }
    ProgramScope(ProgramScope const&) = delete;
    ProgramScope& operator=(ProgramScope const&) = delete;
};
} // namespace

GLMovieShader::~GLMovieShader()
{
    destroy();
}

void GLMovieShader::create(QString const& name, QString const& source)
{
    _name = name;
    _source = source;
}

bool GLMovieShader::isSupported()
{
    return GLARBShaderObjects::instance()->isSupported() && GLARBFragmentShader::instance()->isSupported();
}

bool GLMovieShader::compile()
{
    if (!isSupported() || !QOpenGLContext::currentContext()) {
        _infoLog = QStringLiteral("This system does not support shaders.");
        LOG_ERROR("Shader \"%s\": %s", qPrintable(_name), qPrintable(_infoLog));
        return false;
    }
    GLARBShaderObjects const& gl = *GLARBShaderObjects::instance();
    QByteArray const source = _source.toUtf8();
    char const* text = source.constData();
    unsigned int const shader = gl.createShaderObject(GL_FRAGMENT_SHADER_ARB);
    gl.shaderSource(shader, 1, &text, nullptr);
    gl.compileShader(shader);
    if (!succeeded(shader, GL_OBJECT_COMPILE_STATUS_ARB))
        return fail("compile", shader);

    unsigned int const program = gl.createProgramObject();
    gl.attachObject(program, shader);
    gl.deleteObject(shader); // The program keeps it.
    gl.linkProgram(program);
    if (!succeeded(program, GL_OBJECT_LINK_STATUS_ARB))
        return fail("link", program);

    destroy();
    _program = program;
    _infoLog = infoLogOf(program);
    _context = QOpenGLContext::currentContext();
    return true;
}

void GLMovieShader::destroy()
{
    if (_program) {
        GLContextScope const scope(_context);
        if (scope.isCurrent())
            GLARBShaderObjects::instance()->deleteObject(_program);
    }
    _program = 0;
    _locations.clear();
}

bool GLMovieShader::succeeded(unsigned int object, unsigned int status)
{
    int value = 0;
    GLARBShaderObjects::instance()->getObjectParameteriv(object, status, &value);
    return value != 0;
}

QString GLMovieShader::infoLogOf(unsigned int object)
{
    GLARBShaderObjects const& gl = *GLARBShaderObjects::instance();
    int size = 0;
    gl.getObjectParameteriv(object, GL_OBJECT_INFO_LOG_LENGTH_ARB, &size);
    if (size <= 1)
        return {};
    QByteArray text(size, '\0');
    int length = 0;
    gl.getInfoLog(object, size, &length, text.data());
    return QString::fromUtf8(text.constData(), length).trimmed();
}

bool GLMovieShader::fail(char const* step, unsigned int object)
{
    _infoLog = infoLogOf(object);
    LOG_ERROR("Shader \"%s\" failed to %s: %s", qPrintable(_name), step, qPrintable(_infoLog));
    GLARBShaderObjects::instance()->deleteObject(object);
    return false;
}

int GLMovieShader::location(QString const& uniform)
{
    if (!_program)
        return -1;
    auto found = _locations.constFind(uniform);
    if (found == _locations.constEnd())
        found = _locations.insert(
            uniform, GLARBShaderObjects::instance()->getUniformLocation(_program, uniform.toUtf8().constData()));
    return found.value();
}

bool GLMovieShader::bindUniform1i(QString const& uniform, int value)
{
    int const place = location(uniform);
    if (place < 0)
        return false;
    ProgramScope const scope(_program);
    GLARBShaderObjects::instance()->uniform1i(place, value);
    return true;
}

bool GLMovieShader::bindUniform1f(QString const& uniform, float value)
{
    int const place = location(uniform);
    if (place < 0)
        return false;
    ProgramScope const scope(_program);
    GLARBShaderObjects::instance()->uniform1f(place, value);
    return true;
}

bool GLMovieShader::bindUniform2f(QString const& uniform, float x, float y)
{
    int const place = location(uniform);
    if (place < 0)
        return false;
    ProgramScope const scope(_program);
    GLARBShaderObjects::instance()->uniform2f(place, x, y);
    return true;
}
