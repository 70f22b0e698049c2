#pragma once

#include "GLAnimation.h"

#include <QObject>
#include <QPointF>
#include <QRectF>

class GLTexture;

/// A textured rectangle with a position, a size and an opacity: the base of all that the overlay draws.
///
/// Positions are pixels from the upper left corner of whatever holds the canvas, y downward. GL thread only.
class GLCanvas : public QObject
{
    Q_OBJECT

public:
    explicit GLCanvas(QObject* parent = nullptr);
    ~GLCanvas() override;

    void setGeometry(QRectF const& geometry) { _geometry = geometry; }
    QRectF geometry() const { return _geometry; }

    /// 0.0, transparent, to 1.0; values outside are brought inside. Ends a fade.
    virtual void setOpacity(double opacity);
    double opacity() const { return _opacity; }

    /// What fills the rectangle; borrowed, null for nothing.
    virtual void setTexture(GLTexture* texture);
    GLTexture* texture() const { return _texture; }

    /// A hidden canvas is neither drawn nor hit. Starts visible.
    void setVisible(bool visible);
    bool isVisible() const { return _visible; }

    /// Shows the canvas and moves its opacity to 1.0, or to 0.0 and hides it then.
    void fadeIn(int milliseconds);
    void fadeOut(int milliseconds);
    bool isFading() const { return _fade.isRunning(); }

    /// Whether a visible canvas covers the point, in the coordinates of its holder.
    virtual bool hitTest(QPointF point) const;

    /// Draws the rectangle with its own opacity times the given one. The model-view maps the coordinates of the
    /// holder; blending of premultiplied colours and 2-D texturing are on.
    virtual void render(double opacity) const;

signals:
    void visibilityChanged(bool visible);

private:
    void onFadeValueChanged(GLAnimation* fade);
    void onFadeCompleted(GLAnimation* fade);

    QRectF _geometry;
    double _opacity = 1.0;
    bool _visible = true;
    GLTexture* _texture = nullptr;
    GLAnimation _fade;
};
