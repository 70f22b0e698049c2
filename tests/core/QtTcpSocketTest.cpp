#include "QtTcpSocket.h"

#include "EventLoop.h"
#include "FakeTcpSocket.h"
#include "LogCapture.h"
#include "QtTcpSocketFactory.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>
#include <memory>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

TEST(QtTcpSocket, TalksToAServer)
{
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost, 0));
    QtTcpSocketFactory factory;
    std::unique_ptr<TcpSocket> const one(factory.createTcpSocket(nullptr));
    std::unique_ptr<TcpSocket> const other(factory.createTcpSocket(nullptr));
    QList<TcpSocket*> connectedSockets;
    for (TcpSocket* const socket : {one.get(), other.get()})
        QObject::connect(socket, &TcpSocket::connected, socket, [&](TcpSocket* s) { connectedSockets.append(s); });
    QSignalSpy disconnected(one.get(), &TcpSocket::disconnected);
    QSignalSpy errors(one.get(), &TcpSocket::error);

    one->connectToHost("127.0.0.1", server.serverPort());
    ASSERT_TRUE(processEventsUntil([&] { return server.hasPendingConnections() && !connectedSockets.isEmpty(); }));
    EXPECT_EQ(connectedSockets, QList<TcpSocket*>{one.get()});
    EXPECT_EQ(one->peerName(), "127.0.0.1");
    EXPECT_EQ(one->peerPort(), server.serverPort());
    EXPECT_GE(one->socketDescriptor(), 0);
    int noDelay = 0;
    socklen_t size = sizeof noDelay;
    EXPECT_EQ(getsockopt(one->socketDescriptor(), IPPROTO_TCP, TCP_NODELAY, &noDelay, &size), 0);
    EXPECT_EQ(noDelay, 1);
    EXPECT_EQ(other->socketDescriptor(), -1);
    QTcpSocket* const peer = server.nextPendingConnection();
    EXPECT_EQ(one->localPort(), peer->peerPort());

    EXPECT_EQ(one->write("ping\n"), 5);
    ASSERT_TRUE(processEventsUntil([&] { return peer->canReadLine(); }));
    peer->write("first\nsecond\nthird");
    ASSERT_TRUE(processEventsUntil([&] { return one->bytesAvailable() == 18; }));
    EXPECT_TRUE(one->canReadLine());
    EXPECT_EQ(one->readLine(), "first\n");
    char line[16];
    EXPECT_EQ(one->readLine(line, sizeof line), 7);
    EXPECT_STREQ(line, "second\n");
    EXPECT_EQ(one->read(line, 2), 2);
    EXPECT_EQ(one->readAll(), "ird");

    peer->close();
    ASSERT_TRUE(processEventsUntil([&] { return disconnected.count() == 1; }));
    EXPECT_EQ(disconnected.at(0).at(0).value<TcpSocket*>(), one.get());
    EXPECT_EQ(one->lastError(), QAbstractSocket::RemoteHostClosedError);
    EXPECT_EQ(errors.count(), 1);
}

TEST(QtTcpSocket, ARefusedConnectionIsAnError)
{
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost, 0));
    quint16 const port = server.serverPort();
    server.close();
    QtTcpSocket socket(new QTcpSocket, nullptr);
    QSignalSpy errors(&socket, &TcpSocket::error);
    socket.connectToHost(QHostAddress(QHostAddress::LocalHost), port);
    ASSERT_TRUE(processEventsUntil([&] { return errors.count() == 1; }));
    EXPECT_EQ(errors.at(0).at(1).value<QAbstractSocket::SocketError>(), QAbstractSocket::ConnectionRefusedError);
    EXPECT_EQ(socket.state(), QAbstractSocket::UnconnectedState);
}

TEST(QtTcpSocketFactory, TakesBackOnlyItsOwn)
{
    QtTcpSocketFactory factory;
    LogCapture capture;
    factory.disposeTcpSocket(nullptr);
    FakeTcpSocket foreign;
    factory.disposeTcpSocket(&foreign);
    EXPECT_EQ(capture.count("[WARNING]"), 1);
    EXPECT_FALSE(foreign.signalsBlocked());

    QPointer<TcpSocket> const own(factory.createTcpSocket(nullptr));
    factory.disposeTcpSocket(own);
    ASSERT_TRUE(own);
    EXPECT_TRUE(own->signalsBlocked());
    EXPECT_TRUE(processEventsUntil([&] { return !own; }));
}
