#pragma once

#include "GLPatch.h"

#include <QList>
#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QSizeF>

#include <optional>

class GLControl;
class QKeyEvent;
class QMouseEvent;
class QPainter;
class QWheelEvent;
class QWidget;

/// Holds the controls of one surface: draws them in the order in which they were added, and gives mouse events to the
/// topmost control under the pointer, keys to the one with the focus.
///
/// The control that was pressed keeps the mouse until all buttons are up. A control counts as entered while the
/// pointer is over it or over a control that it holds; one that goes from below a pointer that rests is left. What is
/// hidden or disabled has no focus. Handlers may add, remove and delete controls. GL thread only.
class GLControlLayout : public QObject
{
    Q_OBJECT

public:
    explicit GLControlLayout(QObject* parent = nullptr);
    ~GLControlLayout() override;

    /// Adds a control on top; borrowed. One that is deleted is gone from here too.
    void addControl(GLControl* control);
    /// Takes a control out; it is told that the mouse has left it.
    void removeControl(GLControl* control);
    QList<GLControl*> controls() const;

    /// Pixels, and device pixels per pixel. Recalculates the layout of every control.
    void setSize(QSizeF const& size, double scale = 1.0);
    QSizeF size() const { return _size; }

    /// Recalculates the layout of every control, for the present size.
    void recalcLayout();

    /// The topmost visible control at a point, held ones included; null when there is none.
    GLControl* controlAt(QPointF point) const;

    /// Where keys go: to the control that was set here or pressed last. Null sends them to the lowest control.
    void setFocus(GLControl* control, bool shown = false);
    GLControl* focus() const;
    /// Moves a focus that is shown to the next focusable control, or the one before, in the order in which they were
    /// added; outside of all of them it begins at the first or last. False past the end: none has the focus then.
    bool focusNext(bool forward);
    /// Whether the control with the focus has a use for a key.
    bool wantsKey(QKeyEvent const* event) const;

    /// The event functions return whether a control took the event. Points are pixels from the upper left corner.
    bool mousePress(QPointF point, QMouseEvent* event);
    bool mouseMove(QPointF point, QMouseEvent* event);
    bool mouseRelease(QPointF point, QMouseEvent* event);
    bool mouseWheel(QPointF point, QWheelEvent* event);
    bool keyPress(QKeyEvent* event);
    bool keyRelease(QKeyEvent* event);

    /// The pointer has left the surface.
    void leave();
    /// It is at another point without having moved: the surface has.
    void placePointer(QPointF point);

    double scale() const { return _scale; }

    /// The widget that the controls are drawn on, for those who want to know where on the screen they are. Borrowed;
    /// outlives the layout.
    void setWidget(QWidget* widget) { _widget = widget; }
    QWidget* widget() const { return _widget; }

    /// What the controls look like without OpenGL: a patch for each of those that a bare control holds, and for each
    /// of the others, lowest first; empty when nothing can be seen. Painted anew only where something has changed.
    QList<GLPatch> const& patches();

    /// Draws all controls with an opacity. The current matrices map pixels of the surface, y downward; state that
    /// is changed is restored.
    void render(double opacity);

signals:
    /// Something is to be drawn anew.
    void changed();
    /// Another control has the keyboard, null for none.
    void focusChanged(GLControl* control);
    /// The pointer is over another control, the topmost one; null for none.
    void hoverChanged(GLControl* control);

private:
    /// A control on the way to the pointer, with the pointer in the coordinates of the control's holder.
    struct Hit {
        QPointer<GLControl> control;
        QPointF point;
    };

    /// The controls under a point from the outermost to the topmost.
    QList<Hit> hitsAt(QPointF point) const;
    QPointF toHolder(GLControl* control, QPointF point) const;
    void setHovered(QList<Hit> const& hits);
    void onControlChanged();
    void tidy();
    void addPatches(GLControl* control, QPointF origin, double opacity);
    void addPatch(GLControl* control, QPointF origin, double opacity);
    template<typename Event>
    bool deliver(Hit const& hit, Event* event, void (GLControl::*handler)(QPointF, Event*));

    QList<QPointer<GLControl>> _controls;
    QList<QPointer<GLControl>> _hovered; ///< Outermost first.
    QPointer<GLControl> _grabber;        ///< Pressed and not yet released.
    QPointer<GLControl> _focus;
    std::optional<QPointF> _pointer; ///< Where it was last; none off the surface.
    bool _isTidying = false;         ///< As soon as what goes on now has ended.
    QWidget* _widget = nullptr;
    QSizeF _size;
    double _scale = 1.0;
    QList<GLPatch> _patches;
    bool _arePatchesOutdated = true;
};
