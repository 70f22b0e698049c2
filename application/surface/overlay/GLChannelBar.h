#pragma once

#include "GLButtonControl.h"
#include "GLLabelControl.h"
#include "GLPanelControl.h"
#include "GLProgressIndicator.h"
#include "GLVolumeControl.h"

#include <QElapsedTimer>
#include <QTimer>

class AppData;
class Channel;

/// The bottom of the overlay: how far the film is or how full the buffer, and what is done with what plays.
class GLChannelBar : public GLPanelControl
{
    Q_OBJECT

public:
    static constexpr int height = 84; ///< Pixels.

    GLChannelBar(AppData& appData, GLControlStyle const& style, QObject* parent = nullptr);

    /// Brings all of it up to date with what plays.
    void updateChannel();

    GLProgressIndicator& progress() { return _progress; }

    void recalcLayout(double scale) override;

public slots:
    void updateTime();
    void updateVolume();
    void updateRecording();
    void updateMultiview();

signals:
    void screenshotPressed();

private:
    void createControls();
    void connectControls();
    void updateLogo(Channel const* channel);
    void updatePlay(Channel const* channel);
    void onMultiviewPressed();
    void arrangeButtons(QRectF const& row);
    static std::optional<double> bufferLevel(Channel const& channel);

    AppData& _appData;
    GLProgressIndicator _progress;
    GLLabelControl _time;
    GLControl _logo;
    GLButtonControl _previous;
    GLButtonControl _play;
    GLButtonControl _next;
    GLButtonControl _mute;
    GLVolumeControl _volume;
    GLLabelControl _recordTime;
    GLButtonControl _record;
    GLButtonControl _screenshot;
    GLButtonControl _carousel;
    GLButtonControl _multiview;
    GLButtonControl _fullScreen;
    GLControl _space; ///< What is left between the two groups.
    QTimer _second;   ///< Runs while the bar can be seen.
    QElapsedTimer _recording;
    bool _isPausable = false;
    QString _shown;           ///< The channel that it is about, by its root id.
    double _widestTime = 0.0; ///< Pixels.
    qint64 _logoKey = 0;      ///< Of the logo that is shown, 0 for none, and the scale it is for.
    double _logoScale = 0.0;
};
