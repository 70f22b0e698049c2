#include "GLMovieColourConversion.h"

#include "GLARBFragmentProgram.h"
#include "GLMovieColourSpace.h"
#include "GLMovieShader.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <qopengl.h>

Logger* GLMovieColourConversion::log = LoggerManager::logger();

namespace
{
constexpr char const* fragmentProgramText = "!!ARBfp1.0\n"
                                            "PARAM vr = { %1,  0.0000,   %2 };\n"
                                            "PARAM vg = { %1,  %3,   %4 };\n"
                                            "PARAM vb = { %1,  %5,    0.0000 };\n"
                                            "TEMP y;\n"
                                            "TEMP u;\n"
                                            "TEMP v;\n"
                                            "TEX y, fragment.texcoord[0], texture[0], 2D;\n"
                                            "TEX u, fragment.texcoord[1], texture[1], 2D;\n"
                                            "TEX v, fragment.texcoord[2], texture[2], 2D;\n"
                                            "SUB y.r, y.r, %6;\n"
                                            "SUB u.r, u.r, %7;\n"
                                            "SUB v.r, v.r, %7;\n"
                                            "TEMP yuv;\n"
                                            "MOV yuv.r, y.r;\n"
                                            "MOV yuv.g, u.r;\n"
                                            "MOV yuv.b, v.r;\n"
                                            "DP3 result.color.r, yuv, vr;\n"
                                            "DP3 result.color.g, yuv, vg;\n"
                                            "DP3 result.color.b, yuv, vb;\n"
                                            "MOV result.color.a, fragment.color.a;\n"
                                            "END";

constexpr char const* shaderText =
    "uniform sampler2D tex0,tex1,tex2;mat4 m = mat4( %1, %1, %1, 0.0, 0.0, %3, %5, 0.0, %2, %4, 0.0, 0.0, 0.0, 0.0, "
    "0.0, 1.0 );vec4 d = vec4( %6, %7, %7, 0.0 );vec4 yuvaToRgba( vec4 yuva ){yuva -= d;return m * yuva;}void "
    "main(){vec4 yuva;yuva.r = texture2D(tex0,gl_TexCoord[0].xy).r;yuva.g = "
    "texture2D(tex1,gl_TexCoord[1].xy).r;yuva.b = texture2D(tex2,gl_TexCoord[2].xy).r;yuva.a = gl_Color.a;vec4 rgba "
    "= yuvaToRgba( yuva );gl_FragColor = rgba;}";

/// A number as both languages read it, with a point.
QString number(double value)
{
    QString const text = QString::number(value, 'g', 8);
    return text.contains(u'.') ? text : text + u".0";
}

/// The text with the numbers of a colour space.
QString withNumbers(char const* text, GLMovieColourSpace const& space)
{
    GLMovieColourSpace::Coefficients const numbers = space.coefficients();
    return QString::fromLatin1(text).arg(number(numbers.luma), number(numbers.redV), number(numbers.greenU),
                                         number(numbers.greenV), number(numbers.blueU), number(numbers.lumaOffset),
                                         number(numbers.chromaOffset));
}
} // namespace

bool GLMovieColourConversion::createFragmentProgram(unsigned int& id, GLMovieColourSpace const& space)
{
    GLARBFragmentProgram const& gl = *GLARBFragmentProgram::instance();
    id = 0;
    if (!gl.isSupported())
        return false;
    while (glGetError() != GL_NO_ERROR) {
        // An older error must not be taken for this program's.
    }
    QByteArray const text = withNumbers(fragmentProgramText, space).toLatin1();
    gl.genPrograms(1, &id);
    gl.bindProgram(GL_FRAGMENT_PROGRAM_ARB, id);
    gl.programString(GL_FRAGMENT_PROGRAM_ARB, GL_PROGRAM_FORMAT_ASCII_ARB, static_cast<int>(text.size()),
                     text.constData());
    bool const failed = glGetError() == GL_INVALID_OPERATION;
    gl.bindProgram(GL_FRAGMENT_PROGRAM_ARB, 0);
    if (!failed)
        return true;
    LOG_ERROR("Fragment program failed %s", reinterpret_cast<char const*>(glGetString(GL_PROGRAM_ERROR_STRING_ARB)));
    gl.deletePrograms(1, &id);
    id = 0;
    return false;
}

bool GLMovieColourConversion::createShaderProgram(GLMovieShader* shader, GLMovieColourSpace const& space)
{
    shader->create(QStringLiteral("YUV to RGB Shader"), withNumbers(shaderText, space));
    if (!shader->compile())
        return false;
    shader->bindUniform1i(QStringLiteral("tex0"), 0);
    shader->bindUniform1i(QStringLiteral("tex1"), 1);
    shader->bindUniform1i(QStringLiteral("tex2"), 2);
    return true;
}
