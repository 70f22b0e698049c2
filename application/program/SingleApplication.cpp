#include "SingleApplication.h"

SingleApplication::SingleApplication(QString const& appId, int& argc, char** argv)
    : QApplication(argc, argv), _instance(appId)
{
    connect(&_instance, &SingleInstance::messageReceived, this, &SingleApplication::onMessageReceived);
}

void SingleApplication::initialize(bool activateOnMessage)
{
    _activateOnMessage = activateOnMessage;
    _instance.isFirst();
}

bool SingleApplication::isRunning()
{
    return !_instance.isFirst();
}

bool SingleApplication::sendMessage(QString const& message, int timeoutMs)
{
    return _instance.sendMessage(message, timeoutMs);
}

void SingleApplication::setActivationWindow(QWidget* window, bool activateOnMessage)
{
    _activationWindow = window;
    _activateOnMessage = activateOnMessage;
}

void SingleApplication::activateWindow()
{
    if (!_activationWindow)
        return;
    _activationWindow->setWindowState(_activationWindow->windowState() & ~Qt::WindowMinimized);
    _activationWindow->raise();
    _activationWindow->activateWindow();
}

void SingleApplication::onMessageReceived(QString const& message)
{
    if (_activateOnMessage)
        activateWindow();
    emit messageReceived(message);
}
