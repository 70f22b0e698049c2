#include "GLIndicatorBar.h"

#include "GLPanelControl.h"
#include "Look.h"
#include "OverlayStyle.h"

#include <utility>

GLIndicatorBar::GLIndicatorBar(GLControlStyle const& style, QObject* parent)
    : GLControl("Indicator Bar", parent), _chat("Chat Indicator Button", style),
      _alert("Alert Indicator Button", style)
{
    setLabel(tr("Messages"));
    _chat.setIcon(OverlayStyle::icon(Icon::Chat));
    _alert.setIcon(OverlayStyle::icon(Icon::Alert));
    _alert.setCheckedColour(style.alert);
    for (GLButtonControl* const button : {&_chat, &_alert}) {
        button->setVisible(false);
        addControl(button);
    }
    connect(&_chat, &GLButtonControl::clicked, this, &GLIndicatorBar::chatPressed);
    connect(&_alert, &GLButtonControl::clicked, this, &GLIndicatorBar::alertPressed);
}

void GLIndicatorBar::setChatCount(int count)
{
    show(_chat, _hasChat, count, tr("%n new chat message(s)", nullptr, count));
}

void GLIndicatorBar::setAlertCount(int count)
{
    show(_alert, _hasAlert, count, tr("%n new alert(s)", nullptr, count));
}

void GLIndicatorBar::show(GLButtonControl& button, bool& isWanted, int count, QString const& label)
{
    button.setLabel(label);
    button.setChecked(count > 0);
    if (std::exchange(isWanted, count > 0) == (count > 0))
        return;
    button.setVisible(count > 0);
    emit widthChanged();
}

double GLIndicatorBar::preferredWidth() const
{
    return ((_hasChat ? 1 : 0) + (_hasAlert ? 1 : 0)) * Look::target;
}

void GLIndicatorBar::recalcLayout(double scale)
{
    GLPanelControl::arrange({{.control = &_chat, .width = Look::target, .isWanted = _hasChat},
                             {.control = &_alert, .width = Look::target, .isWanted = _hasAlert}},
                            QRectF(QPointF(), geometry().size()));
    GLControl::recalcLayout(scale);
}
