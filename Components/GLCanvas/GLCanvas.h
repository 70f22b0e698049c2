#pragma once

#include "GLAnimation.h"
#include "GLTexture.h"

#include <QImage>
#include <QObject>
#include <QPointF>
#include <QRectF>

class QPainter;

/// A textured rectangle with a position, a size and an opacity: the base of all that the overlay draws.
///
/// Positions are pixels from the upper left corner of whatever holds the canvas, y downward. GL thread only.
class GLCanvas : public QObject
{
    Q_OBJECT

public:
    explicit GLCanvas(QObject* parent = nullptr);
    ~GLCanvas() override;

    void setGeometry(QRectF const& geometry);
    QRectF geometry() const { return _geometry; }

    /// Device pixels per pixel, 1.0 at first. What is drawn begins and ends on device pixels, so that nothing is
    /// blurred.
    void setScale(double scale) { _scale = scale; }
    double scale() const { return _scale; }
    /// Where that is, in the coordinates of the holder: the geometry, moved by less than a device pixel.
    QRectF drawnGeometry() const;

    /// 0.0, transparent, to 1.0; values outside are brought inside. Ends a fade.
    virtual void setOpacity(double opacity);
    double opacity() const { return _opacity; }

    /// What fills the rectangle; borrowed, null for nothing.
    virtual void setTexture(GLTexture* texture);
    GLTexture* texture() const { return _texture; }

    /// The same with an image of its own, in device pixels: OpenGL makes a texture of it when it first draws it, in
    /// whatever context, and paint() needs none. Takes the place of a texture; a null image is nothing.
    void setImage(QImage const& image);
    QImage const& image() const { return _image; }

    /// A hidden canvas is neither drawn nor hit. Starts visible.
    void setVisible(bool visible);
    bool isVisible() const { return _visible; }

    /// Shows the canvas and moves its opacity to 1.0, or to 0.0 and hides it then. One that is on that way already
    /// goes on.
    void fadeIn(int milliseconds);
    void fadeOut(int milliseconds);
    bool isFading() const { return _fade.isRunning(); }
    /// Whether it can be seen, and is not about to go.
    bool isShown() const { return _visible && (_fadesIn || !isFading()); }

    /// Whether a visible canvas covers the point, in the coordinates of its holder.
    virtual bool hitTest(QPointF point) const;

    /// Draws the rectangle with its own opacity times the given one. The model-view maps the coordinates of the
    /// holder; blending of premultiplied colours and 2-D texturing are on.
    virtual void render(double opacity) const;

    /// The same without OpenGL, in the coordinates of the holder; a texture that is no image cannot be painted so.
    virtual void paint(QPainter& painter, double opacity) const;

signals:
    /// It has to be drawn anew: it looks different, and can be seen, or has just gone.
    void changed();
    void visibilityChanged(bool visible);

private:
    void onFadeValueChanged(GLAnimation* fade);
    void onFadeCompleted(GLAnimation* fade);

    QRectF _geometry;
    double _scale = 1.0;
    double _opacity = 1.0;
    bool _visible = true;
    GLTexture* _texture = nullptr;
    QImage _image;
    mutable GLTexture _imageTexture;   ///< Of the image, as soon as OpenGL has drawn it.
    mutable qint64 _texturedImage = 0; ///< Which image that is.
    GLAnimation _fade;
    bool _fadesIn = false; ///< What the last fade was for.
};
