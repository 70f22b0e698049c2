#pragma once

#include "GLControl.h"

#include <array>
#include <memory>

/// A frame of one colour along the inside of its edges, which the pointer goes through.
class GLFrameControl : public GLControl
{
    Q_OBJECT

public:
    GLFrameControl(QString const& name, QColor const& colour, double width, QObject* parent = nullptr);

    /// In place of setGeometry().
    void setFrame(QRectF const& frame);

private:
    double const _width;
    std::array<std::unique_ptr<GLControl>, 4> _edges;
};
