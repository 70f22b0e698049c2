#include "GLControlLayout.h"

#include "GLControl.h"
#include "GLControlAccessible.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <qopengl.h>
#include <utility>

namespace
{
/// Appends the path from the topmost of the controls at the point inward.
template<typename Hits>
bool appendHits(Hits& hits, QList<GLControl*> const& controls, QPointF point)
{
    for (auto i = controls.crbegin(); i != controls.crend(); ++i) {
        if (!(*i)->hitTest(point))
            continue;
        hits.append({*i, point});
        appendHits(hits, (*i)->controls(), point - (*i)->geometry().topLeft());
        return true;
    }
    return false;
}

/// Finds the offset of the holder of a control within a list of trees.
bool findHolder(QList<GLControl*> const& controls, GLControl const* wanted, QPointF& offset)
{
    for (GLControl* const control : controls) {
        if (control == wanted)
            return true;
        QPointF inner = offset + control->geometry().topLeft();
        if (findHolder(control->controls(), wanted, inner)) {
            offset = inner;
            return true;
        }
    }
    return false;
}

/// Appends the controls that the keyboard gets to, in their order.
void appendFocusable(QList<GLControl*>& found, QList<GLControl*> const& controls)
{
    for (GLControl* const control : controls) {
        if (!control->isVisible() || !control->isEnabled())
            continue;
        if (control->isFocusable())
            found.append(control);
        appendFocusable(found, control->controls());
    }
}
} // namespace

GLControlLayout::GLControlLayout(QObject* parent) : QObject(parent) {}

GLControlLayout::~GLControlLayout()
{
    for (GLControl* const control : controls())
        control->setLayout(nullptr);
}

void GLControlLayout::addControl(GLControl* control)
{
    _controls.removeAll(control);
    _controls.removeAll(nullptr);
    _controls.append(control);
    connect(control, &GLCanvas::changed, this, &GLControlLayout::onControlChanged, Qt::UniqueConnection);
    connect(control, &QObject::destroyed, this, &GLControlLayout::onControlChanged, Qt::UniqueConnection);
    control->setLayout(this);
    control->recalcLayout(_scale);
    onControlChanged();
}

void GLControlLayout::removeControl(GLControl* control)
{
    _controls.removeAll(control);
    if (_grabber == control)
        _grabber = nullptr;
    if (_focus == control)
        _focus = nullptr;
    control->disconnect(this);
    control->setLayout(nullptr);
    onControlChanged();
    if (_hovered.removeAll(control) > 0)
        emit control->mouseLeft(control);
}

QList<GLControl*> GLControlLayout::controls() const
{
    QList<GLControl*> living;
    for (QPointer<GLControl> const& control : _controls)
        if (control)
            living.append(control);
    return living;
}

void GLControlLayout::setSize(QSizeF const& size, double scale)
{
    if (size == _size && scale == _scale)
        return;
    _size = size;
    _scale = scale;
    recalcLayout();
}

void GLControlLayout::recalcLayout()
{
    for (GLControl* const control : controls())
        control->recalcLayout(_scale);
    onControlChanged();
}

void GLControlLayout::onControlChanged()
{
    _arePatchesOutdated = true;
    emit changed();
    // Not now: it may be one of several that are being moved.
    if (!_isTidying && (_focus || !_hovered.isEmpty())) {
        _isTidying = true;
        QMetaObject::invokeMethod(this, &GLControlLayout::tidy, Qt::QueuedConnection);
    }
}

/// What has gone, or has moved away, has neither the pointer nor the focus.
void GLControlLayout::tidy()
{
    _isTidying = false;
    if (_focus && (!_focus->isVisibleInAll() || !_focus->isEnabled()))
        setFocus(nullptr);
    if (!_pointer)
        return;
    QList<Hit> const hits = hitsAt(*_pointer);
    auto const isHit = [&hits](QPointer<GLControl> const& control) {
        return std::ranges::any_of(hits, [&control](Hit const& hit) { return hit.control == control; });
    };
    if (!std::ranges::all_of(_hovered, isHit))
        setHovered(hits);
}

void GLControlLayout::placePointer(QPointF point)
{
    _pointer = point;
    setHovered(hitsAt(point));
}

GLControl* GLControlLayout::controlAt(QPointF point) const
{
    QList<Hit> const hits = hitsAt(point);
    return hits.isEmpty() ? nullptr : hits.constLast().control.data();
}

GLControl* GLControlLayout::focus() const
{
    if (_focus)
        return _focus;
    QList<GLControl*> const living = controls();
    return living.isEmpty() ? nullptr : living.constFirst();
}

void GLControlLayout::setFocus(GLControl* control, bool shown)
{
    QPointer<GLControl> const before = std::exchange(_focus, control);
    if (before && before != control)
        before->setFocused(false, false);
    if (_focus)
        _focus->setFocused(true, shown);
    if (before == control)
        return;
    GLControlAccessible::focusMoved(*this);
    emit focusChanged(_focus);
}

bool GLControlLayout::focusNext(bool forward)
{
    QList<GLControl*> found;
    appendFocusable(found, controls());
    qsizetype const at = _focus && _focus->isFocused() ? found.indexOf(_focus) : -1;
    qsizetype const next = at < 0 ? (forward ? 0 : found.size() - 1) : at + (forward ? 1 : -1);
    bool const isThere = next >= 0 && next < found.size();
    setFocus(isThere ? found.at(next) : nullptr, true);
    return isThere;
}

bool GLControlLayout::wantsKey(QKeyEvent const* event) const
{
    return _focus && _focus->isEnabled() && _focus->wantsKey(event);
}

QList<GLControlLayout::Hit> GLControlLayout::hitsAt(QPointF point) const
{
    QList<Hit> hits;
    appendHits(hits, controls(), point);
    return hits;
}

QPointF GLControlLayout::toHolder(GLControl* control, QPointF point) const
{
    QPointF offset;
    findHolder(controls(), control, offset);
    return point - offset;
}

void GLControlLayout::setHovered(QList<Hit> const& hits)
{
    QList<QPointer<GLControl>> const before = _hovered;
    QList<QPointer<GLControl>> now;
    for (Hit const& hit : hits)
        if (hit.control && hit.control->isEnabled())
            now.append(hit.control);
    GLControl* const topmost = now.isEmpty() ? nullptr : now.constLast().data();
    bool const isOther = (before.isEmpty() ? nullptr : before.constLast().data()) != topmost;
    _hovered = now;
    for (auto i = before.crbegin(); i != before.crend(); ++i)
        if (*i && !now.contains(*i))
            emit(*i)->mouseLeft(*i);
    for (QPointer<GLControl> const& control : now)
        if (control && !before.contains(control))
            emit control->mouseEntered(control);
    if (isOther)
        emit hoverChanged(_hovered.isEmpty() ? nullptr : _hovered.constLast().data());
}

template<typename Event>
bool GLControlLayout::deliver(Hit const& hit, Event* event, void (GLControl::*handler)(QPointF, Event*))
{
    if (!hit.control || !hit.control->isEnabled())
        return hit.control != nullptr;
    event->accept();
    (hit.control->*handler)(hit.point, event);
    return event->isAccepted();
}

bool GLControlLayout::mousePress(QPointF point, QMouseEvent* event)
{
    _pointer = point;
    QList<Hit> const hits = hitsAt(point);
    setHovered(hits);
    if (_grabber)
        return deliver({_grabber, toHolder(_grabber, point)}, event, &GLControl::mousePress);
    if (hits.isEmpty() || !hits.constLast().control)
        return false;
    Hit const& hit = hits.constLast();
    if (hit.control->isEnabled()) {
        _grabber = hit.control;
        setFocus(hit.control);
    }
    bool const taken = deliver(hit, event, &GLControl::mousePress);
    if (!taken)
        _grabber = nullptr;
    return taken;
}

bool GLControlLayout::mouseMove(QPointF point, QMouseEvent* event)
{
    _pointer = point;
    if (_grabber && event->buttons() == Qt::NoButton)
        std::exchange(_grabber, nullptr)->mouseCancel();
    QList<Hit> const hits = hitsAt(point);
    setHovered(hits);
    if (_grabber)
        return deliver({_grabber, toHolder(_grabber, point)}, event, &GLControl::mouseMove);
    return !hits.isEmpty() && deliver(hits.constLast(), event, &GLControl::mouseMove);
}

bool GLControlLayout::mouseRelease(QPointF point, QMouseEvent* event)
{
    _pointer = point;
    bool taken = false;
    if (QPointer<GLControl> const grabber = _grabber) {
        if (event->buttons() == Qt::NoButton)
            _grabber = nullptr;
        taken = deliver({grabber, toHolder(grabber, point)}, event, &GLControl::mouseRelease);
    }
    setHovered(hitsAt(point));
    return taken;
}

bool GLControlLayout::mouseWheel(QPointF point, QWheelEvent* event)
{
    QList<Hit> const hits = hitsAt(point);
    return !hits.isEmpty() && deliver(hits.constLast(), event, &GLControl::mouseWheel);
}

bool GLControlLayout::keyPress(QKeyEvent* event)
{
    GLControl* const control = focus();
    if (!control || !control->isEnabled())
        return false;
    event->accept();
    control->keyPress(event);
    return event->isAccepted();
}

bool GLControlLayout::keyRelease(QKeyEvent* event)
{
    GLControl* const control = focus();
    if (!control || !control->isEnabled())
        return false;
    event->accept();
    control->keyRelease(event);
    return event->isAccepted();
}

void GLControlLayout::leave()
{
    _pointer.reset();
    setHovered({});
}

QList<GLPatch> const& GLControlLayout::patches()
{
    if (!std::exchange(_arePatchesOutdated, false))
        return _patches;
    _patches.clear();
    for (GLControl* const control : controls())
        addPatches(control, {}, 1.0);
    _arePatchesOutdated = false; // Whoever was painted may have said that it has changed.
    return _patches;
}

/// A control that shows nothing itself only holds others, far apart maybe.
void GLControlLayout::addPatches(GLControl* control, QPointF origin, double opacity)
{
    double const combined = opacity * control->opacity();
    if (!control->isVisible() || combined <= 0.0)
        return;
    if (!control->isBare()) {
        addPatch(control, origin, opacity);
        return;
    }
    for (GLControl* const held : control->controls())
        addPatches(held, origin + control->drawnGeometry().topLeft(), combined);
}

void GLControlLayout::addPatch(GLControl* control, QPointF origin, double opacity)
{
    QRectF const geometry = control->drawnGeometry().translated(origin);
    QRectF const device(geometry.topLeft() * _scale, geometry.size() * _scale);
    QRect const area = device.toAlignedRect() & QRectF(QPointF(), _size * _scale).toAlignedRect();
    if (area.isEmpty())
        return;
    QImage image(area.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(-area.topLeft());
    painter.scale(_scale, _scale);
    painter.translate(origin);
    control->paint(painter, opacity);
    painter.end();
    _patches.append({area.topLeft(), image});
}

void GLControlLayout::render(double opacity)
{
    if (std::ranges::none_of(controls(), &GLControl::isVisible))
        return;
    glPushAttrib(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_CURRENT_BIT);
    glMatrixMode(GL_MODELVIEW);
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    for (GLControl* const control : controls())
        control->render(opacity);
    glBindTexture(GL_TEXTURE_2D, 0);
    glPopAttrib();
}
