#include "PostProcessingEffects.h"

#include "GLMovieShader.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QFile>

Logger* PostProcessingEffects::log = LoggerManager::logger();

QStringList PostProcessingEffects::names()
{
    return {"Sharpen", "Black and White", "Film Grain", "Scan Lines"};
}

std::vector<std::unique_ptr<GLMovieShader>> PostProcessingEffects::create(QStringList const& names)
{
    std::vector<std::unique_ptr<GLMovieShader>> shaders;
    for (QString const& name : PostProcessingEffects::names()) {
        if (!names.contains(name))
            continue;
        QFile file(":/Resources/Shaders/" + QString(name).remove(' ') + ".frag");
        if (!file.open(QIODevice::ReadOnly)) {
            LOG_ERROR("Could not open file %s", qPrintable(file.fileName()));
            continue;
        }
        auto shader = std::make_unique<GLMovieShader>();
        shader->create(name, QString::fromUtf8(file.readAll()));
        if (shader->compile())
            shaders.push_back(std::move(shader));
        else
            LOG_ERROR("Effect %s: %s", qPrintable(name), qPrintable(shader->infoLog()));
    }
    return shaders;
}
