#pragma once

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class GLMovieShader;
class Logger;

/// The effects that a viewer may lay over the picture, each a shader in the program's resources.
class PostProcessingEffects
{
public:
    /// In the order in which they are applied.
    static QStringList names();

    /// Compiles the named effects; one that the driver refuses is logged and left out. GL context current.
    static std::vector<std::unique_ptr<GLMovieShader>> create(QStringList const& names);

private:
    static Logger* log;
};
