#include "GLVolumeControl.h"

#include <utility>

namespace
{
constexpr double wheelStep = 0.05;
}

GLVolumeControl::GLVolumeControl(QString const& name, GLControlStyle const& style, QObject* parent)
    : GLValueControl(name, style, parent)
{
    setStep(wheelStep);
}

void GLVolumeControl::setMuted(bool muted)
{
    if (std::exchange(_isMuted, muted) == muted)
        return;
    update();
    emit labelChanged(this);
}

QString GLVolumeControl::valueText() const
{
    return tr("%1 %").arg(qRound(value() * 100.0));
}
