#pragma once

#include "GLPaintedControl.h"

#include <optional>

/// One line of plain text, which ends in an ellipsis where it does not fit.
class GLLabelControl : public GLPaintedControl
{
    Q_OBJECT

public:
    using GLPaintedControl::GLPaintedControl;

    /// Line ends become spaces; what no screen can show is cut off.
    void setText(QString const& text);
    QString text() const { return _text; }
    void setFont(QFont const& font);
    void setColour(QColor const& colour);
    /// Leading, where it says left.
    void setAlignment(Qt::Alignment alignment);
    /// Has a ground of its own, as a tip has.
    void setGrounded(bool grounded);

    /// What the whole text needs, its ground included.
    QSizeF preferredSize() const;

    QString label() const override { return GLControl::label().isEmpty() ? _text : GLControl::label(); }
    QAccessible::Role role() const override { return QAccessible::StaticText; }

protected:
    void draw(QPainter& painter, QSizeF const& size) override;

private:
    QFont font() const { return _font ? *_font : style().font; }

    QString _text;
    std::optional<QFont> _font;
    QColor _colour;
    Qt::Alignment _alignment = Qt::AlignLeft;
    bool _isGrounded = false;
};
