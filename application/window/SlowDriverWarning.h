#pragma once

#include <QObject>
#include <QPointer>

class AppData;
class OmbravisionDialog;
class QWidget;

/// Tells the viewer, once for each profile, that OpenGL runs on the processor here. The dialog holds up nothing, and
/// waits until nothing plays. Main thread only.
class SlowDriverWarning : public QObject
{
    Q_OBJECT

public:
    /// The window is the dialog's parent and outlives this.
    SlowDriverWarning(AppData& appData, QWidget& window);
    ~SlowDriverWarning() override;

public slots:
    /// What draws is known now.
    void onSurfaceInitialized();
    void onWarnAboutSlowDisplayDriver();

private:
    void look();

    AppData& _appData;
    QWidget& _window;
    bool _isSlow = false;
    QPointer<OmbravisionDialog> _dialog;
};
