#include "LinkLabel.h"

LinkLabel::LinkLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::RichText);
    setWordWrap(true);
    setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    setFocusPolicy(Qt::StrongFocus);
}

bool LinkLabel::focusNextPrevChild(bool next)
{
    return next ? QLabel::focusNextPrevChild(true) : QFrame::focusNextPrevChild(false);
}
