// How the overlay comes and goes, and where its parts are.

#include "GLOverlay.h"

#include "AppData.h"
#include "ChannelManager.h"
#include "GLControlAccessible.h"
#include "GLControlLayout.h"
#include "Look.h"
#include "OverlayStyle.h"

#include <QGuiApplication>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace
{
constexpr int padSide = 88;          ///< Pixels.
constexpr int hintInterval = 2000;   ///< ms: from one channel to the next nothing is said.
constexpr double messagePlace = 0.2; ///< Of the height, from above.
constexpr double widestBar = 1200.0; ///< Pixels: on a large screen the controls stay together.
constexpr double markWidth = 2.0;    ///< Likewise.
} // namespace

GLOverlay::GLOverlay(AppData& appData, GLControlLayout* layout, QObject* parent)
    : GLControl("Overlay", parent), _appData(appData), _layout(layout),
      _mark("Active Channel", OverlayStyle::style().accent, markWidth), _top(appData, OverlayStyle::style()),
      _bottom(appData, OverlayStyle::style()), _carousel(OverlayStyle::style()),
      _pad("Viewpoint Pad", OverlayStyle::style()), _message("Message", OverlayStyle::style()),
      _hint("Hint", OverlayStyle::style()), _tip("Tip", OverlayStyle::style())
{
    setLabel(tr("Picture"));
    _pad.setLabel(tr("Viewpoint"));
    for (GLLabelControl* const label : {&_message, &_hint, &_tip}) {
        label->setGrounded(label != &_hint);
        label->setPassedThrough(true);
        label->setAlignment(Qt::AlignHCenter);
    }
    _message.setFont(OverlayStyle::titleFont());
    _hint.setColour(Look::overlayDimText);
    _hint.setText(tr("Choose a channel, or drop a file or an address here"));
    for (GLControl* const control :
         std::initializer_list<GLControl*>{&_mark, &_top, &_bottom, &_carousel, &_pad, &_message, &_hint, &_tip}) {
        control->setVisible(false);
        addControl(control);
    }
    _fadeTimer.setInterval(fadeInterval);
    connect(&_fadeTimer, &QTimer::timeout, this, &GLOverlay::onFadeTimer);
    _messageTimer.setSingleShot(true);
    _messageTimer.setInterval(messageInterval);
    connect(&_messageTimer, &QTimer::timeout, this, [this] { fadeOut(_message); });
    _hintTimer.setSingleShot(true);
    _hintTimer.setInterval(hintInterval);
    connect(&_hintTimer, &QTimer::timeout, this, &GLOverlay::updateHint);
    connectControls();
    connectHub();
    _layout->addControl(this);
    updateTitle();
}

GLOverlay::~GLOverlay()
{
    _layout->removeControl(this);
}

void GLOverlay::fadeIn(GLControl& canvas)
{
    canvas.fadeIn(Look::motion(Look::fadeMilliseconds));
}

void GLOverlay::fadeOut(GLControl& canvas)
{
    canvas.fadeOut(Look::motion(Look::fadeMilliseconds));
}

void GLOverlay::ensureVisible(bool both)
{
    if (_appData.settings.carouselMode())
        return;
    _hasRested = !isPointerOver();
    _fadeTimer.start();
    fadeIn(_top);
    if (both && _appData.settings.showChannelBarOnMouseOver())
        fadeIn(_bottom);
    if (both && _appData.settings.perspectiveMode())
        fadeIn(_pad);
}

bool GLOverlay::isCarouselBar(GLControl const* control) const
{
    return control && (control == &_carousel || control->holder() == &_carousel);
}

bool GLOverlay::isPointerOver() const
{
    // Whoever uses the keyboard rests on a control as the pointer does.
    GLControl const* const focus = _layout->focus();
    return _isPointerOverTop || _isPointerOverBottom || (focus && focus != this && focus->showsFocus());
}

bool GLOverlay::isHeld() const
{
    return _isHeldByAlert || _appData.settings.carouselMode();
}

void GLOverlay::onFadeTimer()
{
    if (isHeld())
        return;
    if (isPointerOver()) {
        _hasRested = false;
        return;
    }
    if (!std::exchange(_hasRested, true))
        return;
    fadeOut(_top);
    fadeOut(_bottom);
    fadeOut(_pad);
    hideTip();
    _fadeTimer.stop();
}

void GLOverlay::setHeldByAlert(bool held)
{
    if (std::exchange(_isHeldByAlert, held) == held)
        return;
    if (held)
        fadeIn(_top);
    _fadeTimer.start();
}

bool GLOverlay::areBarsVisible() const
{
    return _top.isVisible() || _bottom.isVisible() || _carousel.isVisible();
}

void GLOverlay::onTopCanvasVisibilityChanged(bool)
{
    if (std::exchange(_wasVisible, areBarsVisible()) != areBarsVisible())
        emit visibilityChanged(areBarsVisible());
}

void GLOverlay::onBottomCanvasVisibilityChanged(bool visible)
{
    if (!visible)
        hideTip();
    onTopCanvasVisibilityChanged(visible);
}

void GLOverlay::onMouseEntered(GLControl* control)
{
    _isPointerOverTop |= control == &_top;
    _isPointerOverBottom |= control == &_bottom || control == &_pad;
}

void GLOverlay::onMouseLeft(GLControl* control)
{
    if (control == &_top)
        _isPointerOverTop = false;
    if (control == &_bottom || control == &_pad)
        _isPointerOverBottom = false;
}

void GLOverlay::onMouseEnteredWidget()
{
    ensureVisible(true);
}

void GLOverlay::onMouseLeftWidget()
{
    _layout->leave();
    hideTip();
    _hasRested = true;
    if (_fadeTimer.isActive())
        _fadeTimer.start();
}

void GLOverlay::onPerspectiveChanged()
{
    if (_appData.settings.perspectiveMode()) {
        ensureVisible(true);
        return;
    }
    _pad.setPosition({});
    _appData.channelManager()->setViewpoint({});
    fadeOut(_pad);
    updateMark();
}

void GLOverlay::onCarouselModeChanged()
{
    bool const isOn = _appData.settings.carouselMode();
    _layout->setFocus(nullptr);
    hideTip();
    updateHint();
    updateMark();
    if (isOn) {
        fadeOut(_bottom);
        fadeOut(_pad);
        fadeIn(_top);
        fadeIn(_carousel);
    } else {
        fadeOut(_carousel);
        updateTitle();
        ensureVisible(false);
    }
}

void GLOverlay::onShowFullScreenChanged()
{
    _bottom.updateMultiview();
    _top.updateButtons();
}

void GLOverlay::showMessage(QString const& text)
{
    _message.setText(text);
    GLControlAccessible::announce(_message);
    layOut();
    fadeIn(_message);
    _messageTimer.start();
}

void GLOverlay::updateMark()
{
    ChannelManager const& channels = *_appData.channelManager();
    QRect const place = channels.openChannels().size() > 1 && !_appData.settings.carouselMode() &&
                                !_appData.settings.perspectiveMode()
                            ? channels.placeOf(channels.activeChannel())
                            : QRect();
    _mark.setVisible(!place.isEmpty());
    if (!place.isEmpty())
        _mark.setFrame(QRectF(QPointF(place.topLeft()) / _layout->scale(), QSizeF(place.size()) / _layout->scale()));
}

void GLOverlay::recalcLayout(double scale)
{
    setGeometry(QRectF(QPointF(), _layout->size()));
    hideTip(); // What it was about is elsewhere.
    layOut();
    GLControl::recalcLayout(scale);
    _bottom.updateChannel(); // The logo is scaled for the screen.
}

void GLOverlay::layOut()
{
    QSizeF const size = geometry().size();
    double const margin = Look::grid;
    double const width = std::min(std::max(0.0, size.width() - 2.0 * margin), widestBar);
    double const left = std::floor((size.width() - width) / 2.0);
    _top.setGeometry({left, margin, width, GLTitleBar::height});
    _bottom.setGeometry({left, size.height() - margin - GLChannelBar::height, width, GLChannelBar::height});
    double const carouselWidth = std::min(_carousel.preferredWidth(), width);
    _carousel.setGeometry({std::floor((size.width() - carouselWidth) / 2.0),
                           size.height() - margin - GLCarouselBar::height, carouselWidth, GLCarouselBar::height});
    // The bar above the picture's lower edge gives way where there is no room for both.
    bool const isMirrored =
        _appData.settings.perspectiveMode() && QGuiApplication::layoutDirection() == Qt::RightToLeft;
    double const padX = isMirrored ? left : left + width - padSide;
    _pad.setGeometry({padX, _bottom.geometry().top() - margin - padSide, padSide, padSide});
    QSizeF const message = _message.preferredSize().boundedTo(QSizeF(width, size.height()));
    _message.setGeometry({std::floor((size.width() - message.width()) / 2.0),
                          std::max(_top.geometry().bottom() + margin, std::floor(size.height() * messagePlace)),
                          message.width(), message.height()});
    QSizeF const hint = _hint.preferredSize().boundedTo(QSizeF(width, size.height()));
    _hint.setGeometry({std::floor((size.width() - hint.width()) / 2.0),
                       std::floor((size.height() - hint.height()) / 2.0), hint.width(), hint.height()});
}

/// It goes at once, and comes when nothing has played for a while.
void GLOverlay::updateHint()
{
    ChannelManager const& channels = *_appData.channelManager();
    bool const isIdle = channels.openChannels().isEmpty() && !_appData.settings.carouselMode();
    if (!isIdle) {
        _hintTimer.stop();
        _hint.setVisible(false);
    } else if (sender() == &_hintTimer && !channels.isBusy()) {
        fadeIn(_hint);
    } else if (!_hint.isVisible()) {
        _hintTimer.start();
    }
}

QPointF GLOverlay::originOf(GLControl const* control) const
{
    // Bars hold buttons; nothing is deeper but the indicators.
    for (GLControl* const bar : controls()) {
        QPointF const corner = bar->geometry().topLeft();
        for (GLControl* const held : bar->controls()) {
            if (held == control)
                return corner;
            if (held->controls().contains(const_cast<GLControl*>(control)))
                return corner + held->geometry().topLeft();
        }
    }
    return {};
}

void GLOverlay::showTip(QString const& text, QPointF middle, bool above)
{
    _tip.setText(text);
    QSizeF const size = _tip.preferredSize().boundedTo(geometry().size());
    double const x =
        std::clamp(middle.x() - size.width() / 2.0, 0.0, std::max(0.0, geometry().width() - size.width()));
    double const y = above ? middle.y() - size.height() - Look::halfGrid : middle.y() + Look::halfGrid;
    _tip.setGeometry({std::round(x), std::round(y), size.width(), size.height()});
    fadeIn(_tip);
}

void GLOverlay::hideTip()
{
    fadeOut(_tip);
}
