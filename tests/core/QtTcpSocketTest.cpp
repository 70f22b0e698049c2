#include "EventLoop.h"
#include "QtTcpSocketFactory.h"
#include "TcpSocket.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

TEST(QtTcpSocket, TalksToAServerUntilItIsGivenBack)
{
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost, 0));
    QtTcpSocketFactory factory;
    QPointer<TcpSocket> const socket(factory.createTcpSocket(nullptr));
    QSignalSpy connected(socket, &TcpSocket::connected);
    QSignalSpy disconnected(socket, &TcpSocket::disconnected);
    QSignalSpy errors(socket, &TcpSocket::error);

    socket->connectToHost("127.0.0.1", server.serverPort());
    ASSERT_TRUE(processEventsUntil([&] { return server.hasPendingConnections() && connected.count() == 1; }));
    int noDelay = 0;
    socklen_t size = sizeof noDelay;
    EXPECT_EQ(getsockopt(socket->socketDescriptor(), IPPROTO_TCP, TCP_NODELAY, &noDelay, &size), 0);
    EXPECT_EQ(noDelay, 1);
    server.nextPendingConnection()->close();
    ASSERT_TRUE(processEventsUntil([&] { return disconnected.count() == 1; }));
    EXPECT_EQ(disconnected.at(0).at(0).value<TcpSocket*>(), socket);
    EXPECT_EQ(errors.takeFirst().at(1).value<QAbstractSocket::SocketError>(), QAbstractSocket::RemoteHostClosedError);

    factory.disposeTcpSocket(socket);
    ASSERT_TRUE(socket && socket->signalsBlocked());
    EXPECT_TRUE(processEventsUntil([&] { return !socket; }));
}
