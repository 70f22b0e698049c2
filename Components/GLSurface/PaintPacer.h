#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

/// Joins requests to paint into one for each frame of the screen: several streams that are not in step cost no more
/// paints than the screen can show. A request that comes a frame or more after the last paint is not held back. GUI
/// thread only.
class PaintPacer : public QObject
{
    Q_OBJECT

public:
    explicit PaintPacer(QObject* parent = nullptr);

    /// Frames per second of the screen.
    void setRefreshRate(double rate);

    /// Asks for a paint(), which comes from the event loop; further requests until then are served by the same one.
    void request();
    /// Somebody paints now, asked or not: what was requested before is served by that.
    void painted();

signals:
    void paint();

private:
    QTimer _timer;
    QElapsedTimer _lastPaint;
    int _frameTime; ///< ms, whole ones: a stream at the screen's own rate must not fall behind.
};
