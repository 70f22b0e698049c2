#pragma once

#include <QString>

/// An effect that a viewer may lay over all pictures: a shader of GLMovieShader's kind. A value.
struct Effect {
    QString name;
    QString source;
    bool isTemplate = false; ///< Comes with the program and can't be changed.
    bool isOn = false;
    QString fault{};     ///< Why it was switched off, in words; empty if it was not, by the program.
    QByteArray passed{}; ///< What EffectTrial::mark() gave when a trial went well.
    double cost = 0.0;   ///< Microseconds for a megapixel, as that trial had it.

    bool operator==(Effect const& other) const = default;
};
