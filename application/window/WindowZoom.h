#pragma once

#include <QActionGroup>
#include <QObject>
#include <QTimer>

class AppData;
class GLWidget;
class QWidget;

/// How large the picture is: factors of its own size, by resizing the window, and how it fills the surface. The entry
/// of the factor that holds is marked, also after the window was resized by hand. Main thread only.
class WindowZoom : public QObject
{
    Q_OBJECT

public:
    /// All are borrowed and outlive this.
    WindowZoom(AppData& appData, GLWidget& glWidget, QWidget& window);

    /// One entry for each factor from 0.25 to 2, their data.
    QList<QAction*> actions() const { return _factors.actions(); }

    /// Resizes the window so that the video shows at the factor, as far as the screen allows. Not in full screen.
    void zoom(double factor);
    /// Resizes the window; one that has grown stays on the screen.
    void resizeWindow(QSize const& size);
    /// Whether a size of the window is one that came from here.
    bool isOwnSize(QSize const& size) const { return size == _ownSize; }

public slots:
    void onZoom25() { zoom(0.25); }
    void onZoom50() { zoom(0.5); }
    void onZoom75() { zoom(0.75); }
    void onZoom100() { zoom(1.0); }
    void onZoom125() { zoom(1.25); }
    void onZoom150() { zoom(1.5); }
    void onZoom175() { zoom(1.75); }
    void onZoom200() { zoom(2.0); }
    void onDrawModeHalfSize() { setDrawMode(0); }
    void onDrawModeNormalSize() { setDrawMode(1); }
    void onDrawModeDoubleSize() { setDrawMode(2); }
    void onDrawModeStretch() { setDrawMode(3); }
    void onDrawModeTouchInside() { setDrawMode(4); }
    void onDrawModeTouchOutside() { setDrawMode(5); }
    /// Marks the factor that is nearest to what is shown, none without a picture.
    void check();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createFactors();
    void connectDrawModes();
    void setDrawMode(int mode);

    AppData& _appData;
    GLWidget& _glWidget;
    QWidget& _window;
    QActionGroup _factors;
    QTimer _rest; ///< Looks at the picture once the window rests.
    QSize _ownSize;
};
