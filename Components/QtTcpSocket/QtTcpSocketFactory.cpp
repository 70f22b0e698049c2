#include "QtTcpSocketFactory.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "QtTcpSocket.h"

#include <QTcpSocket>

Logger* QtTcpSocketFactory::log = LoggerManager::logger();

TcpSocket* QtTcpSocketFactory::createTcpSocket(QObject* parent)
{
    return new QtTcpSocket(new QTcpSocket, parent);
}

void QtTcpSocketFactory::disposeTcpSocket(TcpSocket* socket)
{
    if (!socket)
        return;
    if (!qobject_cast<QtTcpSocket*>(socket)) {
        LOG_WARNING("disposeTcpSocket(): not a QtTcpSocket but a %s.", socket->metaObject()->className());
        return;
    }
    socket->blockSignals(true);
    socket->deleteLater();
}
