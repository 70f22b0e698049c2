#include "SingleInstance.h"

#include <QFileInfo>
#include <QLocalSocket>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <array>
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
    QStringList const messages{"", "zwölf\n€", longest};
    for (QString const& message : messages) {
        EXPECT_TRUE(send(message));
        ASSERT_EQ(received.size(), 1);
        EXPECT_EQ(received.takeFirst().at(0).toString(), message);
    }
    EXPECT_FALSE(SingleInstance(id).sendMessage(longest + "x", patienceMs));
}

TEST_F(SingleInstanceTest, NobodyThereOrNobodyAnsweringIsAFailure)
{
    EXPECT_FALSE(SingleInstance(id).sendMessage("Wake up!", 50));
    SingleInstance const hung(id);
    EXPECT_FALSE(SingleInstance(id).sendMessage("Wake up!", 50));
}

TEST_F(SingleInstanceTest, TheNextOneTakesOverAfterACrash)
{
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

TEST_F(SingleInstanceTest, ClientsThatBreakTheRulesAreCutOffAndSilentOnesHoldNobodyUp)
{
    SingleInstance first(id);
    ASSERT_TRUE(first.isFirst());
    QSignalSpy received(&first, &SingleInstance::messageReceived);
    for (char const* const bytes : {"00100001", "ffffffff", "00000002c328"}) { // Too long, too, and no UTF-8.
        QLocalSocket client;
        client.connectToServer(first.socketPath());
        ASSERT_TRUE(client.waitForConnected(patienceMs));
        QSignalSpy disconnected(&client, &QLocalSocket::disconnected);
        client.write(QByteArray::fromHex(bytes));
        EXPECT_TRUE(!disconnected.isEmpty() || disconnected.wait(patienceMs)) << bytes;
    }
    std::array<QLocalSocket, 40> silent;
    for (QLocalSocket& client : silent) {
        client.connectToServer(first.socketPath());
        ASSERT_TRUE(client.waitForConnected(patienceMs));
        client.write(QByteArray::fromHex("0000ffff00"));
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(received.isEmpty());
    EXPECT_TRUE(send("Wake up!"));
    EXPECT_EQ(received.size(), 1);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return 16 >= std::count_if(silent.begin(), silent.end(), [](QLocalSocket const& client) {
                   return client.state() == QLocalSocket::ConnectedState;
               });
    }));
}

TEST_F(SingleInstanceTest, EachProfileHasAFirstInstanceOfItsOwn)
{
    QByteArray const previous = qgetenv("XDG_CONFIG_HOME");
    QString const mine = SingleInstance::idOfProfile(id);
    qputenv("XDG_CONFIG_HOME", _directory.filePath("not/there").toUtf8());
    QString const other = SingleInstance::idOfProfile(id);
    previous.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", previous);
    EXPECT_NE(mine, other);
    EXPECT_EQ(mine, SingleInstance::idOfProfile(id));
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
