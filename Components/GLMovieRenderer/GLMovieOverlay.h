#pragma once

#include "GLControlLayout.h"
#include "GLTextArea.h"

#include <QRectF>
#include <QString>

/// The texts over a picture: its name near the upper edge and a message amid it. GL thread only.
class GLMovieOverlay
{
public:
    GLMovieOverlay();

    void setName(QString const& name);
    void setMessage(QString const& message);

    /// Draws what there is within a rectangle, in a projection in pixels, y downward.
    void draw(QRectF const& rectangle, double opacity);

private:
    void arrange(QRectF const& rectangle);

    GLControlLayout _layout;
    GLTextArea _name;
    GLTextArea _message;
    QRectF _rectangle; ///< What the texts are arranged for.
};
