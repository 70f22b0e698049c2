#include "LinkLabel.h"

#include <QFocusEvent>

LinkLabel::LinkLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::RichText);
    setWordWrap(true);
    setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    setFocusPolicy(Qt::StrongFocus);
}

void LinkLabel::focusInEvent(QFocusEvent* event)
{
    QLabel::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        QLabel::focusNextPrevChild(true);
}

bool LinkLabel::focusNextPrevChild(bool next)
{
    return next ? QLabel::focusNextPrevChild(true) : QFrame::focusNextPrevChild(false);
}
