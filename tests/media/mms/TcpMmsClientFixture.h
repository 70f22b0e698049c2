#pragma once

#include "FakeTcpSocketFactory.h"
#include "FakeTimerFactory.h"
#include "LogCapture.h"
#include "QtDateTimeBuilder.h"
#include "SortedMemoQueue.h"
#include "TcpMmsClient.h"
#include "TcpMmsWire.h"

#include <QList>

#include <gtest/gtest.h>

/// A TcpMmsClient whose server and time are the test's.
class TcpMmsClientTest : public testing::Test
{
protected:
    /// Where a conversation can stand; each is named after what the client waits for.
    enum Step {
        ForConnection,
        ForConnectedEx,
        ForFunnelInfo,
        ForConnectedFunnel,
        ForOpenFile,
        ForReadBlock,
        ForHeader,
        ForStreamSwitch,
        ForStartedPlaying,
        ForData
    };
    static constexpr int timeout = 10000;
    static constexpr quint32 accessDenied = 0x80070005;
    static constexpr quint32 funnelInfoMark = 0xF0F0F0F0;

    TcpMmsClientTest()
    {
        QObject::connect(&client, &MmsClient::done, [this](MmsClient::MmsClientError error) { ends.append(error); });
        QObject::connect(&client, &MmsClient::onHeader, [this](QByteArray const& bytes) { headers.append(bytes); });
        QObject::connect(&client, &MmsClient::onData, [this](QByteArray const& bytes) { packets.append(bytes); });
    }

    /// Runs the memos that are due.
    void run() { timers.advance(0); }

    /// The socket of the session.
    FakeTcpSocket& socket() { return *sockets.sockets().constLast(); }

    void connectToServer(QString const& url = "mms://media.example/live/one.wmv?id=5")
    {
        client.connectToServer(QUrl(url), QString(), timeout);
        run();
    }

    void receive(QByteArray const& bytes)
    {
        socket().receive(bytes);
        run();
    }

    /// What brings the conversation from this step to the next.
    static QByteArray answer(Step step, quint32 result = 0)
    {
        using namespace TcpMmsWire;
        QByteArray const answers[] = {"",
                                      connectedEx(result, funnelInfoMark),
                                      funnelInfo(result),
                                      connectedFunnel(result),
                                      openedFile(result),
                                      readBlock(result),
                                      header(),
                                      streamSwitch(result),
                                      startedPlaying(result),
                                      ""};
        return answers[step];
    }

    /// Begins a session and brings it to a step.
    void goTo(Step step)
    {
        connectToServer();
        ends.clear();
        packets.clear();
        if (step == ForConnection)
            return;
        socket().accept();
        run();
        for (int done = ForConnectedEx; done < step; ++done)
            receive(answer(static_cast<Step>(done)));
        socket().takeWritten();
    }

    bool isMemoPending() { return run(), timers.timers().constFirst()->isActive(); }

    LogCapture log;
    FakeTickCounter clock;
    FakeTimerFactory timers{clock};
    SortedMemoQueue queue{&clock, &timers};
    FakeTcpSocketFactory sockets;
    QtDateTimeBuilder dates;
    TcpMmsClient client{"{01234567-89ab-cdef-0123-456789abcdef}", &timers, &sockets, &dates, &queue, nullptr};
    QList<MmsClient::MmsClientError> ends;
    QList<QByteArray> headers;
    QList<QByteArray> packets;
};
