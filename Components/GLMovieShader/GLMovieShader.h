#pragma once

#include <QHash>
#include <QOpenGLContext>
#include <QPointer>
#include <QString>

class Logger;

/// A program in the shading language that computes each pixel of a picture: the colour conversion, or one step of
/// post-processing.
///
/// A post-processing source reads the picture from `uniform sampler2D tex0` at gl_TexCoord[0] and may use
/// `uniform vec2 tex0Dimensions` and `tex0TexelDimensions` (texels, and their inverse), `uniform float time`
/// (seconds) and `uniform float random` (0 to 1, new for each picture).
///
/// GL thread only, with a current context for all but create() and the accessors; destroy() and the destructor find
/// theirs by themselves.
class GLMovieShader
{
public:
    GLMovieShader() = default;
    ~GLMovieShader();
    GLMovieShader(GLMovieShader const&) = delete;
    GLMovieShader& operator=(GLMovieShader const&) = delete;

    /// Sets the name, for people, and the source. A program compiled before goes on until compile().
    void create(QString const& name, QString const& source);

    /// Compiles and links the source into a new program. On failure returns false, logs, keeps the program of before,
    /// and infoLog() says why.
    bool compile();
    void destroy();
    bool isCompiled() const { return _program != 0; }

    QString name() const { return _name; }
    QString source() const { return _source; }
    /// The compiler's words on the last compile().
    QString infoLog() const { return _infoLog; }

    /// OpenGL's name of the program, 0 before compile().
    unsigned int handle() const { return _program; }

    /// Set a uniform of the program; false, without a log line, when the program does not use it.
    bool bindUniform1i(QString const& uniform, int value);
    bool bindUniform1f(QString const& uniform, float value);
    bool bindUniform2f(QString const& uniform, float x, float y);

private:
    static bool isSupported();
    static bool succeeded(unsigned int object, unsigned int status);
    static QString infoLogOf(unsigned int object);
    bool fail(char const* step, unsigned int object);
    int location(QString const& uniform);

    static Logger* log;

    QString _name;
    QString _source;
    QString _infoLog;
    QPointer<QOpenGLContext> _context; ///< Where the program lives.
    unsigned int _program = 0;
    QHash<QString, int> _locations;
};
