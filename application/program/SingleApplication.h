#pragma once

#include "SingleInstance.h"

#include <QApplication>
#include <QPointer>
#include <QString>
#include <QWidget>

/// A widget application that runs once for each user: a later instance finds the first and hands it a message.
class SingleApplication : public QApplication
{
    Q_OBJECT

public:
    /// `appId` names the program among the user's programs. `argc` and `argv` must outlive the object.
    SingleApplication(QString const& appId, int& argc, char** argv);

    /// Begins to hear messages, unless another instance runs. With `activateOnMessage` each of them also brings the
    /// activation window to the front.
    void initialize(bool activateOnMessage = true);

    /// Whether another instance was there first. When none was, this becomes the first.
    bool isRunning();

    /// Sends a message to the first instance. Returns whether it was taken within `timeoutMs`; waits at most that
    /// long.
    bool sendMessage(QString const& message, int timeoutMs = 5000);

    /// The window that activateWindow() brings to the front, borrowed.
    void setActivationWindow(QWidget* window, bool activateOnMessage = true);
    QWidget* activationWindow() const { return _activationWindow; }

public slots:
    /// Brings the activation window to the front, out of its icon if need be.
    void activateWindow();

signals:
    /// A later instance has sent a message.
    void messageReceived(QString const& message);

private:
    void onMessageReceived(QString const& message);

    SingleInstance _instance;
    QPointer<QWidget> _activationWindow;
    bool _activateOnMessage = false;
};
