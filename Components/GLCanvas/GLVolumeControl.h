#pragma once

#include "GLValueControl.h"

/// The volume, 0.0 to 1.0; dim while the sound is off.
class GLVolumeControl : public GLValueControl
{
    Q_OBJECT

public:
    GLVolumeControl(QString const& name, GLControlStyle const& style, QObject* parent = nullptr);

    void setMuted(bool muted);
    QString valueText() const override;

protected:
    QColor colour() const override { return _isMuted ? style().dimText : style().accent; }

private:
    bool _isMuted = false;
};
