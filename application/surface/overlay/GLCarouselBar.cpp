#include "GLCarouselBar.h"

#include "Look.h"
#include "OverlayStyle.h"

GLCarouselBar::GLCarouselBar(GLControlStyle const& style, QObject* parent)
    : GLPanelControl("Carousel Bar", style, parent), _left("Left Button", style), _play("Play Button", style),
      _multiview("Multiview Button", style), _right("Right Button", style)
{
    setLabel(tr("Channel carousel"));
    _left.setIcon(OverlayStyle::icon(Icon::Left));
    _left.setLabel(tr("The channel to the left"));
    _play.setIcon(OverlayStyle::icon(Icon::Play));
    _play.setLabel(tr("Play this channel"));
    _multiview.setIcon(OverlayStyle::icon(Icon::Multiview));
    _multiview.setLabel(tr("Show this channel beside the others"));
    _right.setIcon(OverlayStyle::icon(Icon::Right));
    _right.setLabel(tr("The channel to the right"));
    for (GLButtonControl* const button : {&_left, &_play, &_multiview, &_right}) {
        addControl(button);
        connect(button, &GLButtonControl::clicked, this, [this](GLControl* control) {
            emit buttonPressed(control->name(), control == &_left ? -1 : control == &_right ? 1 : 0);
        });
    }
}

double GLCarouselBar::preferredWidth() const
{
    return 4.0 * Look::target + 5.0 * Look::grid;
}

void GLCarouselBar::recalcLayout(double scale)
{
    QRectF const row =
        QRectF(QPointF(), geometry().size()).adjusted(Look::grid, Look::grid, -Look::grid, -Look::grid);
    // Left stays left in every language.
    double x = row.left();
    for (GLButtonControl* const button : {&_left, &_play, &_multiview, &_right}) {
        button->setGeometry({x, row.top(), Look::target, row.height()});
        x += Look::target + Look::grid;
    }
    GLPanelControl::recalcLayout(scale);
}
