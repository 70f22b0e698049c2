#include "EffectTrialProgram.h"

#include "EffectTrial.h"
#include "EffectsStore.h"
#include "GLExtensions.h"
#include "GLMoviePostProcessor.h"
#include "GLMovieShader.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <limits>

namespace
{

constexpr QSize trialPicture(320, 180); // Large enough for a driver to share the work out as for a film.
constexpr int fewestPictures = 3;       // The first one may compile, too.
constexpr int mostPictures = 60;        // One of them may have the processor for itself, even while a film plays.
constexpr int trialTime = 300;          // ms for them, where they are not too few.

/// What this process has worked so far, in ms: the system may be busy with something else.
double workedMilliseconds()
{
    return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// Of the fastest. The first one, which may compile as well, ends at `firstEnd` by workedMilliseconds().
double microsecondsPerPicture(GLMovieShader const& shader, QOpenGLFunctions& gl, double& firstEnd)
{
    GLMoviePostProcessor processor;
    processor.setEnabled(true);
    processor.addProgram(shader.handle());
    if (!processor.createFrameBufferObjects(trialPicture))
        return -1.0;
    qint64 best = std::numeric_limits<qint64>::max();
    QElapsedTimer all;
    all.start();
    for (int i = 0; i < mostPictures && (i < fewestPictures || !all.hasExpired(trialTime)); ++i) {
        processor.beginRenderToTexture(0);
        processor.endRenderToTexture();
        gl.glFinish();
        QElapsedTimer timer;
        timer.start();
        processor.postProcess();
        gl.glFinish();
        best = std::min(best, timer.nsecsElapsed());
        if (i == 0)
            firstEnd = workedMilliseconds();
    }
    return static_cast<double>(best) / 1000.0;
}

QJsonObject examine(QString const& source)
{
    QOpenGLContext context;
    QOffscreenSurface surface;
    surface.create();
    if (!context.create() || !context.makeCurrent(&surface))
        return {};
    initGLExtensions(&context);
    GLMovieShader shader;
    shader.create("trial", source);
    double const begin = workedMilliseconds();
    bool const isCompiled = shader.compile();
    QJsonObject answer{{"compiled", isCompiled}, {"log", shader.infoLog().left(EffectTrial::longestLog)}};
    if (!isCompiled)
        return answer;
    double end = begin;
    double const time = microsecondsPerPicture(shader, *context.functions(), end);
    if (time < 0.0)
        return {};
    answer.insert("compileMilliseconds", end - begin);
    answer.insert("microsecondsPerMegapixel", time * 1e6 / (trialPicture.width() * trialPicture.height()));
    return answer;
}

} // namespace

bool EffectTrialProgram::isWanted(int argc, char** argv)
{
    return argc == 2 && std::strcmp(argv[1], EffectTrial::argument) == 0;
}

int EffectTrialProgram::run(int argc, char** argv)
{
    LoggerManager::logger()->setMethod(Logger::StandardError); // The log is the other process's.
    QSurfaceFormat format;
    format.setVersion(2, 1);
    QSurfaceFormat::setDefaultFormat(format);
    QGuiApplication const application(argc, argv);
    QFile in;
    if (!in.open(stdin, QIODevice::ReadOnly))
        return 1;
    QByteArray const source = in.read(EffectsStore::maximumSource);
    QByteArray const answer = QJsonDocument(examine(QString::fromUtf8(source))).toJson(QJsonDocument::Compact);
    std::fwrite(answer.constData(), 1, static_cast<size_t>(answer.size()), stdout);
    return std::fflush(stdout) == 0 ? 0 : 1;
}
