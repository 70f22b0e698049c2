#include "VideoPrograms.h"

#include "GLExtension.h"
#include "GLMovieRenderer.h"

#include <utility>

void VideoPrograms::createColourConversion()
{
    if (!GLMovieRenderer::createYUVtoRGBFragmentProgram(_colourConversionFragmentProgram))
        _colourConversionFragmentProgram = 0;
    GLMovieRenderer::createYUVtoRGBShaderProgram(&_colourConversionShader);
    _drawsInSoftware = GLExtension::isSoftwareRenderer();
}

QList<GLMovieShader*> VideoPrograms::postProcessingShaders() const
{
    QList<GLMovieShader*> shaders;
    for (auto const& shader : _postProcessingShaders)
        shaders.append(shader.get());
    return shaders;
}

void VideoPrograms::clearPostProcessingShaders()
{
    auto const going = takePostProcessingShaders(); // Told while the programs still exist.
}

std::vector<std::unique_ptr<GLMovieShader>> VideoPrograms::takePostProcessingShaders()
{
    auto taken = std::exchange(_postProcessingShaders, {});
    emit postProcessingChanged();
    return taken;
}

void VideoPrograms::addPostProcessingShaders(std::vector<std::unique_ptr<GLMovieShader>> shaders)
{
    for (auto& shader : shaders)
        _postProcessingShaders.push_back(std::move(shader));
    emit postProcessingChanged();
}
