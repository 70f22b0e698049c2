#pragma once

#include <QObject>
#include <QTimer>

/// Keeps the X server from believing that nobody is there, by a press of the Shift key every ten seconds.
/// Does nothing where there is no X display.
class KeepAwakeManager : public QObject
{
    Q_OBJECT

public:
    explicit KeepAwakeManager(QObject* parent = nullptr);

    /// False keeps the system awake from now on, true lets it go to rest again.
    void setEnabled(bool enabled);

public slots:
    /// Presses and releases the left Shift key.
    void onTimer();

private:
    QTimer _timer;
};
