#include "GLFrameControl.h"

#include <QColor>

GLFrameControl::GLFrameControl(QString const& name, QColor const& colour, double width, QObject* parent)
    : GLControl(name, parent), _width(width)
{
    setPassedThrough(true);
    setDecoration(true);
    QImage pixel(1, 1, QImage::Format_ARGB32_Premultiplied);
    pixel.fill(colour);
    for (auto& edge : _edges) {
        edge = std::make_unique<GLControl>(name + " Edge");
        edge->setImage(pixel);
        addControl(edge.get());
    }
}

void GLFrameControl::setFrame(QRectF const& frame)
{
    setGeometry(frame);
    double const inner = frame.height() - 2.0 * _width;
    _edges[0]->setGeometry({0.0, 0.0, frame.width(), _width});
    _edges[1]->setGeometry({0.0, frame.height() - _width, frame.width(), _width});
    _edges[2]->setGeometry({0.0, _width, _width, inner});
    _edges[3]->setGeometry({frame.width() - _width, _width, _width, inner});
}
