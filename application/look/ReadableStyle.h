#pragma once

#include <QProxyStyle>

/// The desktop's style, where what it leaves too faint is made plain: hints, links and disabled words in palettes
/// that say nothing about them, and the outlines of fields, boxes and buttons on dark grounds, where Qt's own style
/// draws them darker still. What has contrast enough stays as it is. Two icons that every window has are the
/// program's own. Main thread only.
class ReadableStyle : public QProxyStyle
{
    Q_OBJECT

public:
    using QProxyStyle::polish;

    void polish(QPalette& palette) override;
    int styleHint(StyleHint hint, QStyleOption const* option, QWidget const* widget,
                  QStyleHintReturn* data) const override;
    QIcon standardIcon(StandardPixmap icon, QStyleOption const* option, QWidget const* widget) const override;
    void drawPrimitive(PrimitiveElement element, QStyleOption const* option, QPainter* painter,
                       QWidget const* widget) const override;
    void drawControl(ControlElement element, QStyleOption const* option, QPainter* painter,
                     QWidget const* widget) const override;
    void drawComplexControl(ComplexControl control, QStyleOptionComplex const* option, QPainter* painter,
                            QWidget const* widget) const override;

private:
    enum class Outline { Square, Round, Focus };
    bool wantsOutlines(QPalette const& palette) const;
    void outline(QStyleOption const* option, QRect const& rect, QPainter* painter,
                 Outline kind = Outline::Square) const;
};
