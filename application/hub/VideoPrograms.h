#pragma once

#include "GLMovieShader.h"

#include <QList>
#include <QObject>

#include <memory>
#include <vector>

/// The OpenGL programs that pictures are drawn with. Made and taken away by the video surface, with its context
/// current. Main thread only.
class VideoPrograms : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The two programs that convert colours on the card.
    void createColourConversion();
    unsigned int colourConversionFragmentProgram() const { return _colourConversionFragmentProgram; }
    GLMovieShader& colourConversionShader() { return _colourConversionShader; }

    /// Whether OpenGL runs on the processor, where every sample counts.
    bool drawsInSoftware() const { return _drawsInSoftware; }

    /// The effects that pictures pass through while post-processing is on, in order; owned here.
    QList<GLMovieShader*> postProcessingShaders() const;
    void clearPostProcessingShaders();
    /// Hands them over; none are left.
    std::vector<std::unique_ptr<GLMovieShader>> takePostProcessingShaders();
    void addPostProcessingShaders(std::vector<std::unique_ptr<GLMovieShader>> shaders);

signals:
    void postProcessingChanged();

private:
    GLMovieShader _colourConversionShader;
    unsigned int _colourConversionFragmentProgram = 0;
    bool _drawsInSoftware = false;
    std::vector<std::unique_ptr<GLMovieShader>> _postProcessingShaders;
};
