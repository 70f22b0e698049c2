#include "FittingScrollArea.h"

#include <QEvent>
#include <QLayout>
#include <QResizeEvent>
#include <QScreen>
#include <QScrollBar>

namespace
{
constexpr int roomForOtherParts = 160; // Pixels of height for what is around it: frame, heading, buttons.
constexpr int leastAreaHeight = 64;
} // namespace

FittingScrollArea::FittingScrollArea(QWidget* contents, QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(contents);
    contents->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    contents->installEventFilter(this);
}

QSize FittingScrollArea::sizeHint() const
{
    QSize hint = widget()->sizeHint();
    int const room = screen()->availableSize().height() - roomForOtherParts;
    if (hint.height() > room)
        hint = {hint.width() + verticalScrollBar()->sizeHint().width(), room};
    return hint;
}

QSize FittingScrollArea::minimumSizeHint() const
{
    QSize least = widget()->minimumSizeHint();
    // Texts of several lines want more where it is narrow.
    if (QLayout const* const layout = widget()->layout(); layout && layout->hasHeightForWidth())
        least.setHeight(
            qMax(least.height(), layout->totalMinimumHeightForWidth(qMax(least.width(), widget()->width()))));
    int const room = qMax(leastAreaHeight, screen()->availableSize().height() - roomForOtherParts);
    if (least.height() <= room)
        return least; // Nothing is cut that has room.
    return {least.width() + verticalScrollBar()->sizeHint().width(), room};
}

bool FittingScrollArea::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

void FittingScrollArea::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        updateGeometry();
}
