#include "EventLoop.h"
#include "HttpContentChecker.h"
#include "HttpMmsClient.h"
#include "QtDateTimeBuilder.h"
#include "QtHttpClientFactory.h"
#include "QtTimerFactory.h"
#include "SortedMemoQueue.h"
#include "SystemTickCounter.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTimer>

#include <gmock/gmock.h>
#include <unistd.h>

namespace
{

/// VLC as a server of MMS over HTTP, playing a film over and over. Everybody may read its directory, since VLC does
/// not run as root.
class VlcServer
{
public:
    VlcServer()
    {
        QFile::setPermissions(_directory.path(), QFile::Permissions(0x7755));
        QProcess::execute("ffmpeg", {"-v",    "error", "-f",
                                     "lavfi", "-i",    "testsrc2=size=640x480:rate=25",
                                     "-f",    "lavfi", "-i",
                                     "sine",  "-t",    "4",
                                     "-c:v",  "wmv2",  "-qmin",
                                     "1",     "-q:v",  "2",
                                     "-c:a",  "wmav2", path("film.asf")});
        QTcpServer probe;
        probe.listen(QHostAddress::LocalHost);
        _port = probe.serverPort();
        probe.close();
        QStringList const arguments = {
            "--reuid=65534", "--clear-groups",
            "cvlc",          "--quiet",
            "--repeat",      "--http-host=127.0.0.1",
            "--sout-keep",   path("film.asf"),
            "--sout",        "#std{access=mmsh,mux=asfh,dst=127.0.0.1:" + QString::number(_port) + "}"};
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("HOME", "/nonexistent");
        _process.setProcessEnvironment(environment);
        _process.setStandardOutputFile(QProcess::nullDevice());
        _process.setStandardErrorFile(QProcess::nullDevice());
        if (geteuid() == 0)
            _process.start("setpriv", arguments);
        else
            _process.start("cvlc", arguments.mid(3));
        _process.waitForStarted();
    }

    ~VlcServer()
    {
        _process.kill();
        _process.waitForFinished();
    }

    QUrl url() const { return QUrl("mms://127.0.0.1:" + QString::number(_port) + "/"); }
    QString path(QString const& name) const { return _directory.filePath(name); }

private:
    QTemporaryDir _directory;
    QProcess _process;
    quint16 _port = 0;
};

} // namespace

TEST(HttpMmsClient, PlaysWhatAForeignServerSends)
{
    if (QStandardPaths::findExecutable("cvlc").isEmpty())
        GTEST_SKIP() << "cvlc (vlc-bin, vlc-plugin-base) is not installed";
    VlcServer const server;
    QtHttpClientFactory clients;
    QtTimerFactory timers;
    QtDateTimeBuilder dateTime;
    SystemTickCounter ticks;
    SortedMemoQueue queue(&ticks, &timers);
    HttpMmsClient client("{01234567-89ab-cdef-0123-456789abcdef}", &clients, &timers, &dateTime, &queue);
    QByteArray film;
    int packets = 0;
    QObject::connect(&client, &MmsClient::onHeader, [&](QByteArray const& header) { film = header; });
    QObject::connect(&client, &MmsClient::onData, [&](QByteArray const& packet) {
        EXPECT_EQ(packet.size(), client.packetSize());
        film += packet;
        ++packets;
    });
    // Until it listens and has a header the server refuses.
    QObject::connect(&client, &MmsClient::done, &client, [&] {
        QTimer::singleShot(50, &client, [&] { client.connectToServer(server.url(), {}, 5000); });
    });
    client.connectToServer(server.url(), {}, 5000);
    ASSERT_TRUE(processEventsUntil([&] { return packets >= 200; })) << packets;

    HttpContentChecker checker(&clients, &timers);
    int contentType = HttpContentChecker::Unknown;
    QObject::connect(&checker, &HttpContentChecker::finished,
                     [&](HttpContentChecker::CheckResponse const& response) { contentType = response.contentType; });
    checker.check(server.url().toString(), {}, {}, 5000);
    EXPECT_TRUE(processEventsUntil([&] { return contentType == HttpContentChecker::MmsStream; }));

    QFile file(server.path("received.asf"));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write(film);
    file.close();
    QProcess decoder;
    decoder.start("ffmpeg", {"-v", "error", "-i", file.fileName(), "-f", "null", "-"});
    ASSERT_TRUE(decoder.waitForFinished(20000));
    EXPECT_EQ(decoder.readAllStandardError().toStdString(), "");
    EXPECT_EQ(decoder.exitCode(), 0);
}
