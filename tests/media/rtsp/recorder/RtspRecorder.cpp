#include "Latte.h"
#include "LatteDataSource.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "NativeRtspClientFactory.h"
#include "QtTimerFactory.h"
#include "RtspLatteClient.h"
#include "RtspLatteClientFactory.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

#include <cstdio>

// rtsp_recorder ADDRESS SECONDS FILE: writes what an RtspLatteClient delivers, header first, and says when what
// happened. rtsp_recorder ADDRESS: says when a LatteDataSource opens it.

namespace
{

QElapsedTimer sinceStart;

void tell(QString const& text)
{
    std::printf("%5lld ms  %s\n", static_cast<long long>(sinceStart.elapsed()), qPrintable(text));
    std::fflush(stdout);
}

void copy(LatteClient* client, QFile& file)
{
    QByteArray bytes(client->bytesAvailable(), Qt::Uninitialized);
    bytes.truncate(client->read(bytes.data(), bytes.size()));
    file.write(bytes);
}

int record(RtspLatteClientFactory& factory, Uri const& uri, int seconds, QString const& path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return 2;
    LatteClient* const client = factory.createLatteClient(uri);
    QObject::connect(client, &LatteClient::progressChanged, [](LatteClient*, QString const& text) { tell(text); });
    QObject::connect(client, &LatteClient::error, [](LatteClient*, NetworkErrors::NetworkError code) {
        tell(NetworkErrors::stringForError(code));
    });
    QObject::connect(client, &LatteClient::descriptorChanged,
                     [&file, client](LatteClient*, qint64) { file.write(client->descriptor(0)); });
    QObject::connect(client, &LatteClient::readyRead, [&file, client] { copy(client, file); });
    client->startBuffering();
    QTimer::singleShot(seconds * 1000, qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
    copy(client, file);
    client->stopBuffering();
    factory.disposeLatteClient(client);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return file.size() > 0 ? 0 : 1;
}

int open(RtspLatteClientFactory& factory, Uri const& uri)
{
    Latte latte;
    latte.registerLatteClientFactory(UriScheme("rtsp"), &factory);
    LatteDataSource source(&latte, StreamDescription(uri), QString());
    QObject::connect(&source, &LatteDataSource::stateChanged,
                     [](GLMovieDataSource*, QString const& text) { tell(text); });
    QObject::connect(&source, &LatteDataSource::opened, [&source] {
        tell(QStringLiteral("opened, %1 %2")
                 .arg(source.videoStream() ? "picture" : "no picture", source.audioStream() ? "sound" : "no sound"));
        QCoreApplication::exit(0);
    });
    source.open();
    QTimer::singleShot(30000, qApp, [] { QCoreApplication::exit(1); });
    return QCoreApplication::exec();
}

} // namespace

int main(int count, char** arguments)
{
    QCoreApplication const application(count, arguments);
    LoggerManager::logger()->setMethod(Logger::StandardError);
    LoggerManager::logger()->setLevel(Logger::Debug);
    QStringList const names = QCoreApplication::arguments();
    if (names.size() != 2 && names.size() != 4)
        return 2;
    sinceStart.start();
    QtTimerFactory timerFactory;
    NativeRtspClientFactory clientFactory;
    RtspLatteClientFactory factory(&clientFactory, &timerFactory);
    Uri const uri(names[1]);
    return names.size() == 4 ? record(factory, uri, names[2].toInt(), names[3]) : open(factory, uri);
}
