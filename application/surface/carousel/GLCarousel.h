#pragma once

#include "GLAnimation.h"
#include "GLCarouselSlide.h"

#include <QPointF>
#include <QRect>
#include <QTimer>

#include <map>
#include <memory>

class AppData;
class QKeyEvent;
class QWheelEvent;

/// All channels as a row of slides in the depth of the screen, in the order of their titles: the one in the middle
/// plays, without sound, its neighbours stand turned beside it. Moved by wheel, drag and keys.
///
/// Only slides near the middle exist, however many channels there are. Points are pixels of the surface, y downward.
/// GL thread only.
class GLCarousel : public QObject
{
    Q_OBJECT

public:
    explicit GLCarousel(AppData& appData, QObject* parent = nullptr);
    ~GLCarousel() override;

    /// Begins with the channel that is watched in the middle. False where there is none.
    bool enter();
    /// Ends it: what was opened only to be looked at closes again.
    void leave();
    bool isEntered() const { return _isEntered; }

    /// The channel in the middle, or on the way there; empty for none.
    QString activeChannel() const { return _activeChannel; }

    /// Moves by so many slides.
    void step(int slides);
    /// Opens the channel in the middle, alone or beside the others, and has left() follow.
    void openActive(bool beside);

    void mousePress(QPointF point);
    /// With a button held.
    void mouseDrag(QPointF point);
    /// With none.
    void mouseHover(QPointF point);
    void mouseRelease(QPointF point, bool isModifierHeld);
    /// The release has gone elsewhere.
    void mouseCancel();
    void wheel(QWheelEvent const* event);
    /// Whether a key means something here.
    static bool wantsKey(QKeyEvent const* event);
    bool keyPress(QKeyEvent const* event);

    /// Draws it on the whole viewport of that size, over black. `zoom` is how near the viewer is: at 0.0 the card in
    /// the middle fills the surface, at 1.0 all is to be seen.
    void render(QSize const& surface, double zoom);

    /// How far two slides are apart in pixels.
    static double pixelsPerSlide(QSize const& surface);

signals:
    void activeChannelChanged(QString rootId);
    void mouseEnteredSlide(GLCarouselSlide* slide);
    void mouseLeftSlide(GLCarouselSlide* slide);
    /// It is to be drawn anew.
    void changed();
    /// The viewer wants out of it.
    void left();

private:
    int count() const;
    int target() const { return _target; }
    void moveTo(int index);
    void onMoved();
    void onChannelsUpdated();
    void onChannelChanged(Channel const* to);
    void playActive();
    void renderSlide(int index, QSize const& surface, GLCarouselSlide::Budget& budget);
    void keepSlidesNear(int middle);
    GLCarouselSlide* slideAt(QPointF point) const;
    void setHovered(GLCarouselSlide* slide);

    AppData& _appData;
    GLAnimation _position; ///< The place in the row that is in the middle.
    QTimer _playTimer;     ///< Runs until the middle one has stood still for long enough to be opened.
    std::map<int, std::unique_ptr<GLCarouselSlide>> _slides; ///< By their places in the row.
    GLCarouselSlide* _hovered = nullptr;
    QString _activeChannel;
    QString _prepared; ///< What was opened only to be looked at.
    int _target = 0;
    bool _isEntered = false;
    bool _isPressed = false;
    bool _isDragged = false;
    QPointF _pressPoint;
    double _pressPosition = 0.0;
    double _wheelRest = 0.0; ///< Of a notch.
    QSize _surface;          ///< As drawn last.
};
