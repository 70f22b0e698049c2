#pragma once

#include "TitleBar.h"

#include <QColor>
#include <QObject>
#include <QRegion>
#include <QVBoxLayout>

class AppSettings;

/// The frame of a top-level window: the window manager's or, in the skin, one of the program's own, with a title bar,
/// round corners, and edges by which the window is resized.
///
/// Follows the setting as it changes, without a new native window. Main thread only.
class SkinFrame : public QObject
{
    Q_OBJECT

public:
    /// Gives the window, which owns and outlives this, its layout.
    SkinFrame(QWidget& window, AppSettings const& settings, TitleBar::Buttons buttons);

    /// The layout of what is within the frame.
    QVBoxLayout* contents() const { return _contents; }
    TitleBar* titleBar() const { return _titleBar; }

    /// Whether the window has no frame of the window manager's.
    bool isSkinned() const { return _isSkinned; }

    /// Draws the border; to be called by the window's paintEvent.
    void paint() const;

    /// What of a window with round corners is to be seen. Pixels of the corners' radius that are too many are left
    /// out.
    static QRegion roundedMask(QSize const& size, int radius);
    /// Gives the window the shape that it has now: the whole where there is a frame, or no edge to be seen.
    void generateSkinMask();

    /// Which edges a point of the window is for resizing at.
    Qt::Edges edgesAt(QPoint const& point) const;

    int radius = 0;        ///< Pixels; of the corners in the skin.
    QColor colourInside{}; ///< Of the border's two lines.
    QColor colourOutside{};

signals:
    /// The frame has come or gone.
    void skinChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void onShowWindowFrameChanged();
    void arrange();
    bool hasEdges() const;
    void showEdgeCursor(Qt::Edges edges);

    QWidget& _window;
    AppSettings const& _settings;
    bool _isSkinned = false;
    bool _hasEdgeCursor = false;
    QVBoxLayout* _contents;
    TitleBar* _titleBar;
};
