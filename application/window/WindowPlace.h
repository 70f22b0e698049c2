#pragma once

#include <QObject>
#include <QRect>
#include <QTimer>

class AppSettings;
class QScreen;
class QWidget;

/// Where the window is on the desktop: kept in the settings, and put where a display is, at the start and whenever
/// displays come, go or change. Main thread only.
class WindowPlace : public QObject
{
    Q_OBJECT

public:
    /// Both are borrowed and outlive this.
    WindowPlace(QWidget& window, AppSettings& settings);

    /// Puts the window where it was last, as large as it was, if it is known. Before it is shown.
    bool restore();

    /// Puts where the window is now into the settings, if it is where the viewer wants it: neither hidden nor filling
    /// the screen.
    void keep();

    /// The rectangle, moved and made smaller as far as it needs be to lie within the display that it has most of, or
    /// the first of them if none.
    static QRect fitted(QRect const& rectangle, QList<QRect> const& displays);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void onDisplaysChanged();

private:
    void watch(QScreen* screen);
    bool isOrdinary() const;

    QWidget& _window;
    AppSettings& _settings;
    QTimer _rest;                  ///< Keeps the place once the window rests.
    QTimer _displays;              ///< Looks at the window once the displays have settled.
    bool _displaysChanged = false; ///< In full screen: the window has yet to be looked at.
};
