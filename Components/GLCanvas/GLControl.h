#pragma once

#include "GLCanvas.h"

#include <QAccessible>
#include <QList>
#include <QPointer>
#include <QString>

class GLControlLayout;
class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

/// A canvas that takes part in events and may hold other controls, whose positions count from its own corner.
///
/// A GLControlLayout calls the event functions; each emits its signal. Points are in the coordinates of the
/// control's holder. A control that calls ignore() on an event lets the layout's owner have it.
class GLControl : public GLCanvas
{
    Q_OBJECT

public:
    /// The name is for the log.
    explicit GLControl(QString const& name, QObject* parent = nullptr);
    ~GLControl() override;

    QString name() const { return _name; }

    /// What it is called by: in words for the viewer, in a tip and for assistive technology.
    void setLabel(QString const& label);
    virtual QString label() const { return _label; }

    /// What it is to assistive technology. Most controls only hold others.
    virtual QAccessible::Role role() const { return QAccessible::Grouping; }
    virtual QAccessible::State state() const;
    /// What it stands at, in words; empty where there is no such thing.
    virtual QString valueText() const { return {}; }

    /// Adds a control on top of those it holds; borrowed unless `control` has a parent.
    void addControl(GLControl* control);
    void removeControl(GLControl* control);

    /// The held controls that still live, lowest first.
    QList<GLControl*> controls() const;
    /// What holds it, and the layout that the outermost holder is in; null without one.
    GLControl* holder() const { return _holder; }
    GLControlLayout* layout() const;
    /// The layout's: it has been added there, or with null taken out.
    void setLayout(GLControlLayout* layout);

    /// Whether it is there to be looked at only, and nothing to assistive technology. Starts false.
    void setDecoration(bool isDecoration) { _isDecoration = isDecoration; }
    bool isDecoration() const { return _isDecoration; }
    /// Whether it and all that hold it are visible.
    bool isVisibleInAll() const;

    /// Whether the pointer is never over it nor over what it holds. Starts false.
    void setPassedThrough(bool passed) { _isPassedThrough = passed; }

    /// Whether it shows nothing itself, and only holds others.
    virtual bool isBare() const { return image().isNull() && !texture(); }

    /// A disabled control is drawn and covers what is below, but gets no events. Starts enabled.
    virtual void setEnabled(bool enabled);
    bool isEnabled() const { return _enabled; }

    /// Whether the keyboard gets to it, by GLControlLayout::focusNext(). Starts false.
    void setFocusable(bool focusable) { _focusable = focusable; }
    bool isFocusable() const { return _focusable && _enabled && isVisible(); }
    /// The layout says whether it has the focus, and whether that is to be seen.
    virtual void setFocused(bool focused, bool shown);
    bool isFocused() const { return _focused; }
    bool showsFocus() const { return _showsFocus; }
    /// Whether a key means something to it, and so must not be taken for a shortcut.
    virtual bool wantsKey(QKeyEvent const*) const { return false; }

    virtual void mousePress(QPointF point, QMouseEvent* event);
    virtual void mouseMove(QPointF point, QMouseEvent* event);
    virtual void mouseRelease(QPointF point, QMouseEvent* event);
    /// The press is over, and its release has gone elsewhere: to a menu, say.
    virtual void mouseCancel();
    virtual void mouseWheel(QPointF point, QWheelEvent* event);
    virtual void keyPress(QKeyEvent* event);
    virtual void keyRelease(QKeyEvent* event);

    using GLCanvas::render;
    /// Draws the control and on top of it those it holds, with their opacity times its own.
    virtual void render(double opacity);

    using GLCanvas::paint;
    /// The same without OpenGL.
    virtual void paint(QPainter& painter, double opacity);

    /// Arranges what the control holds and makes its textures anew as needed. `scale` is device pixels per pixel.
    /// The layout calls it when its size or scale has changed; a current context is not promised.
    virtual void recalcLayout(double scale);

    using GLCanvas::hitTest;
    /// As above, but a control may answer for what it has had to arrange first.
    virtual bool hitTest(QPointF point);

signals:
    void mousePressed(GLControl* control, QPointF point, QMouseEvent* event);
    void mouseMoved(GLControl* control, QPointF point, QMouseEvent* event);
    void mouseReleased(GLControl* control, QPointF point, QMouseEvent* event);
    void mouseCancelled(GLControl* control);
    void mouseWheeled(GLControl* control, QWheelEvent* event);
    void mouseEntered(GLControl* control);
    void mouseLeft(GLControl* control);
    void keyPressed(GLControl* control, QKeyEvent* event);
    void keyReleased(GLControl* control, QKeyEvent* event);
    void focusChanged(GLControl* control, bool focused);
    /// What label() gives is another one.
    void labelChanged(GLControl* control);

private:
    void onControlChanged();

    QString const _name;
    QList<QPointer<GLControl>> _controls;
    QPointer<GLControl> _holder;
    GLControlLayout* _layout = nullptr; ///< Of one that nothing holds.
    QString _label;
    bool _enabled = true;
    bool _isPassedThrough = false;
    bool _isDecoration = false;
    bool _focusable = false;
    bool _focused = false;
    bool _showsFocus = false;
};
