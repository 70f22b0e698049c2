#include "SingleInstance.h"

#include "LogCapture.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QLocalSocket>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <future>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

QString const id = QStringLiteral("Test");
constexpr int patienceMs = 10000;

/// Each test has a runtime directory of its own.
class SingleInstanceTest : public testing::Test
{
protected:
    void SetUp() override
    {
        _previousDirectory = qgetenv("XDG_RUNTIME_DIR");
        qputenv("XDG_RUNTIME_DIR", _directory.path().toUtf8());
    }
    void TearDown() override { qputenv("XDG_RUNTIME_DIR", _previousDirectory); }

    /// Sends from another thread, while this one runs the event loop of the first instance.
    static bool send(QString const& message)
    {
        auto result =
            std::async(std::launch::async, [&] { return SingleInstance(id).sendMessage(message, patienceMs); });
        while (result.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        return result.get();
    }

    QTemporaryDir _directory;
    QByteArray _previousDirectory;
};

} // namespace

TEST_F(SingleInstanceTest, ALaterInstanceReachesTheFirst)
{
    SingleInstance first(id);
    ASSERT_TRUE(first.isFirst());
    EXPECT_TRUE(first.isFirst()) << "it stays the first";
    EXPECT_FALSE(SingleInstance(id).isFirst());
    EXPECT_TRUE(SingleInstance("Other").isFirst());

    QSignalSpy received(&first, &SingleInstance::messageReceived);
    QString const longest(SingleInstance::maximumMessageBytes, 'x');
    QStringList const messages{"Wake up!", "", "zwölf\n€", longest};
    for (QString const& message : messages) {
        EXPECT_TRUE(send(message));
        ASSERT_EQ(received.size(), 1);
        EXPECT_EQ(received.takeFirst().at(0).toString(), message);
    }
    EXPECT_FALSE(SingleInstance(id).sendMessage(longest + "x", patienceMs));
}

TEST_F(SingleInstanceTest, NobodyThereOrNobodyAnsweringIsAFailureInTime)
{
    EXPECT_FALSE(SingleInstance(id).sendMessage("Wake up!", 50));
    SingleInstance const hung(id);
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_FALSE(SingleInstance(id).sendMessage("Wake up!", 50));
    EXPECT_LT(elapsed.elapsed(), 2000);
}

TEST_F(SingleInstanceTest, TheNextOneTakesOverAfterAnEndOrACrash)
{
    {
        SingleInstance const first(id);
        ASSERT_TRUE(SingleInstance(id).isFirst());
    }
    EXPECT_TRUE(SingleInstance(id).isFirst());

    pid_t const child = fork();
    ASSERT_GE(child, 0);
    if (child == 0)
        _exit((new SingleInstance(id))->isFirst() ? 0 : 1);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
    ASSERT_TRUE(QFileInfo::exists(_directory.filePath("Test.lock"))) << "the crash leaves its lock behind";

    SingleInstance second(id);
    ASSERT_TRUE(second.isFirst());
    QSignalSpy received(&second, &SingleInstance::messageReceived);
    EXPECT_TRUE(send("Wake up!"));
    EXPECT_EQ(received.size(), 1);
}

TEST_F(SingleInstanceTest, ClientsThatBreakTheRulesAreCutOff)
{
    LogCapture capture;
    SingleInstance first(id);
    ASSERT_TRUE(first.isFirst());
    QSignalSpy received(&first, &SingleInstance::messageReceived);
    QByteArray const broken[] = {
        QByteArray::fromHex("00100001"),      // One byte too long.
        QByteArray::fromHex("40000000"),      // 1 GiB.
        QByteArray::fromHex("7fffffff"),      //
        QByteArray::fromHex("80000000"),      //
        QByteArray::fromHex("ffffffff"),      //
        QByteArray("GET / HTTP/1.1\r\n\r\n"), // Not even our language.
        QByteArray::fromHex("00000002c328"),  // No UTF-8.
        QByteArray(8 * 1024 * 1024, '\xff'),  // Much more than is ever read.
    };
    for (QByteArray const& bytes : broken) {
        SCOPED_TRACE(bytes.left(16).toHex().constData());
        QLocalSocket client;
        client.connectToServer(first.socketPath());
        ASSERT_TRUE(client.waitForConnected(patienceMs));
        QSignalSpy disconnected(&client, &QLocalSocket::disconnected);
        client.write(bytes);
        EXPECT_TRUE(!disconnected.isEmpty() || disconnected.wait(patienceMs));
    }
    EXPECT_TRUE(received.isEmpty());
    EXPECT_TRUE(send("Wake up!"));
    EXPECT_EQ(received.size(), 1);
}

TEST_F(SingleInstanceTest, SilentAndHalfSentClientsHoldNobodyUp)
{
    SingleInstance first(id);
    ASSERT_TRUE(first.isFirst());
    QSignalSpy received(&first, &SingleInstance::messageReceived);
    std::vector<std::unique_ptr<QLocalSocket>> clients;
    for (int i = 0; i < 100; ++i) {
        auto client = std::make_unique<QLocalSocket>();
        client->connectToServer(first.socketPath());
        ASSERT_TRUE(client->waitForConnected(patienceMs));
        client->write(QByteArray::fromHex("0000ffff00").left(i % 6));
        clients.push_back(std::move(client));
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(send("Wake up!"));
    EXPECT_EQ(received.size(), 1);
    EXPECT_LE(first.findChildren<QLocalSocket*>().size(), 16);
}

TEST_F(SingleInstanceTest, AMessageMayComeByteByByte)
{
    SingleInstance first(id);
    ASSERT_TRUE(first.isFirst());
    QSignalSpy received(&first, &SingleInstance::messageReceived);
    QLocalSocket client;
    client.connectToServer(first.socketPath());
    ASSERT_TRUE(client.waitForConnected(patienceMs));
    QByteArray const bytes = QByteArray::fromHex("000000026869");
    for (char const byte : bytes) {
        EXPECT_TRUE(received.isEmpty());
        client.write(&byte, 1);
        client.flush();
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    ASSERT_TRUE(!received.isEmpty() || received.wait(patienceMs));
    EXPECT_EQ(received.at(0).at(0).toString(), "hi");
}

TEST_F(SingleInstanceTest, WithoutARuntimeDirectoryItMakesOneThatNobodyElseCanEnter)
{
    qunsetenv("XDG_RUNTIME_DIR");
    QByteArray const previousTemporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", _directory.path().toUtf8());
    QString const made = _directory.filePath(QStringLiteral("ombravision-%1").arg(geteuid()));
    EXPECT_EQ(SingleInstance(id).socketPath(), made + "/Test.socket");

    // Another user could have made it first, open to all.
    ASSERT_EQ(chmod(qPrintable(made), 0777), 0);
    SingleInstance exposed(id);
    EXPECT_TRUE(exposed.socketPath().isEmpty());
    EXPECT_TRUE(exposed.isFirst());
    EXPECT_FALSE(exposed.sendMessage("Wake up!", 50));
    qputenv("TMPDIR", previousTemporary);
}
