#include "GLMovieColourConversion.h"

#include "GLARBFragmentProgram.h"
#include "GLMovieShader.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <qopengl.h>
#include <string_view>

Logger* GLMovieColourConversion::log = LoggerManager::logger();

namespace
{
constexpr std::string_view fragmentProgramText = "!!ARBfp1.0\n"
                                                 "PARAM vr = { 1.164,  0.0000,   1.596 };\n"
                                                 "PARAM vg = { 1.164,  -0.391,   -0.813 };\n"
                                                 "PARAM vb = { 1.164,  2.018,    0.0000 };\n"
                                                 "TEMP y;\n"
                                                 "TEMP u;\n"
                                                 "TEMP v;\n"
                                                 "TEX y, fragment.texcoord[0], texture[0], 2D;\n"
                                                 "TEX u, fragment.texcoord[1], texture[1], 2D;\n"
                                                 "TEX v, fragment.texcoord[2], texture[2], 2D;\n"
                                                 "SUB y.r, y.r, 0.0625;\n"
                                                 "SUB u.r, u.r, 0.5;\n"
                                                 "SUB v.r, v.r, 0.5;\n"
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
    "uniform sampler2D tex0,tex1,tex2;mat4 m = mat4( 1.164, 1.164, 1.164, 0.0, 0.0, -0.391, 2.018, 0.0, 1.596, "
    "-0.813, 0.0, 0.0, 0.0, 0.0, 0.0, 1.0 );vec4 d = vec4( 0.0625, 0.5, 0.5, 0.0 );vec4 yuvaToRgba( vec4 yuva "
    "){yuva -= d;return m * yuva;}void main(){vec4 yuva;yuva.r = texture2D(tex0,gl_TexCoord[0].xy).r;yuva.g = "
    "texture2D(tex1,gl_TexCoord[1].xy).r;yuva.b = texture2D(tex2,gl_TexCoord[2].xy).r;yuva.a = gl_Color.a;vec4 rgba "
    "= yuvaToRgba( yuva );gl_FragColor = rgba;}";
} // namespace

bool GLMovieColourConversion::createFragmentProgram(unsigned int& id)
{
    GLARBFragmentProgram const& gl = *GLARBFragmentProgram::instance();
    id = 0;
    if (!gl.isSupported())
        return false;
    while (glGetError() != GL_NO_ERROR) {
        // An older error must not be taken for this program's.
    }
    gl.genPrograms(1, &id);
    gl.bindProgram(GL_FRAGMENT_PROGRAM_ARB, id);
    gl.programString(GL_FRAGMENT_PROGRAM_ARB, GL_PROGRAM_FORMAT_ASCII_ARB,
                     static_cast<int>(fragmentProgramText.size()), fragmentProgramText.data());
    bool const failed = glGetError() == GL_INVALID_OPERATION;
    gl.bindProgram(GL_FRAGMENT_PROGRAM_ARB, 0);
    if (!failed)
        return true;
    LOG_ERROR("Fragment program failed %s", reinterpret_cast<char const*>(glGetString(GL_PROGRAM_ERROR_STRING_ARB)));
    gl.deletePrograms(1, &id);
    id = 0;
    return false;
}

bool GLMovieColourConversion::createShaderProgram(GLMovieShader* shader)
{
    shader->create(QStringLiteral("YUV to RGB Shader"), QString::fromLatin1(shaderText));
    if (!shader->compile())
        return false;
    shader->bindUniform1i(QStringLiteral("tex0"), 0);
    shader->bindUniform1i(QStringLiteral("tex1"), 1);
    shader->bindUniform1i(QStringLiteral("tex2"), 2);
    return true;
}
