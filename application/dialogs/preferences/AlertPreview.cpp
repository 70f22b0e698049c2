#include "AlertPreview.h"

#include "Icons.h"
#include "Look.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>

AlertPreview::AlertPreview(QWidget* parent)
    : QFrame(parent, Qt::ToolTip | Qt::FramelessWindowHint), _bell(new QLabel(this)), _words(new QLabel(this))
{
    setObjectName("alertPreview");
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFrameShape(QFrame::StyledPanel);
    setAccessibleName(tr("Sample alert"));
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(Look::margin, Look::margin, Look::margin, Look::margin);
    layout->setSpacing(Look::grid);
    layout->addWidget(_bell, 0, Qt::AlignTop);
    _words->setTextFormat(Qt::PlainText);
    _words->setText(tr("Breaking news\nThis is how an alert looks."));
    layout->addWidget(_words, 1);
    _timer.setSingleShot(true);
    connect(&_timer, &QTimer::timeout, this, &QWidget::hide);
}

void AlertPreview::present(int opacity, int duration)
{
    // In the colours of now.
    _bell->setPixmap(Icons::icon(Icon::Alert).pixmap({Look::largeIcon, Look::largeIcon}, devicePixelRatioF()));
    setWindowOpacity(opacity / 100.0);
    adjustSize();
    QRect const room = parentWidget()->screen()->availableGeometry();
    bool const rightToLeft = layoutDirection() == Qt::RightToLeft;
    int const x = rightToLeft ? room.left() + Look::margin : room.right() - width() - Look::margin;
    move(x, room.bottom() - height() - Look::margin);
    show();
    _timer.start(duration);
}

void AlertPreview::mousePressEvent(QMouseEvent*)
{
    hide();
}
