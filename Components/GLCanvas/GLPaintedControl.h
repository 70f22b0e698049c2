#pragma once

#include "GLControl.h"
#include "GLControlStyle.h"

/// A control that paints its look with QPainter. That becomes an image when it is first needed, and a texture when
/// OpenGL draws it; both last until update() or another size.
class GLPaintedControl : public GLControl
{
    Q_OBJECT

public:
    GLPaintedControl(QString const& name, GLControlStyle const& style, QObject* parent = nullptr);

    bool isBare() const override { return false; }
    void setEnabled(bool enabled) override;
    void setFocused(bool focused, bool shown) override;
    using GLControl::paint;
    using GLControl::render;
    void render(double opacity) override;
    void paint(QPainter& painter, double opacity) override;
    void recalcLayout(double scale) override;

protected:
    /// Paints into a transparent image of that size in pixels, antialiased, in the direction of the layout.
    virtual void draw(QPainter& painter, QSizeF const& size) = 0;

    /// It looks different now.
    void update();

    GLControlStyle const& style() const { return _style; }
    /// Whether what leads is on the right.
    static bool isMirrored();
    /// The ring around what has the focus of the keyboard.
    void drawFocus(QPainter& painter, QRectF const& rectangle) const;

private:
    void updateImage();

    GLControlStyle const _style;
    bool _isOutdated = true;
};
