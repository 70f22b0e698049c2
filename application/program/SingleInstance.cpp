#include "SingleInstance.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QStringDecoder>
#include <QThread>
#include <QTimer>
#include <QtEndian>

#include <sys/stat.h>
#include <unistd.h>

Logger* SingleInstance::log = LoggerManager::logger();

namespace
{

constexpr int headerBytes = sizeof(quint32);
constexpr int maximumClients = 16;
constexpr int clientTimeoutMs = 5000;
constexpr int retryIntervalMs = 20;
constexpr char const* acknowledgement = "ack";

/// A directory that only this user can enter, or nothing.
QString privateDirectory()
{
    QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() && QFileInfo(runtime).isDir() && QFileInfo(runtime).isWritable())
        return runtime;

    QString path = QDir::temp().filePath(QStringLiteral("ombravision-%1").arg(geteuid()));
    QByteArray const name = path.toLocal8Bit();
    mkdir(name.constData(), S_IRWXU);
    // Anybody can make a directory or a link of this name first.
    struct stat status = {};
    bool const usable = lstat(name.constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
                        status.st_uid == geteuid() && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
    return usable ? path : QString();
}

int remainingMs(QDeadlineTimer const& deadline)
{
    return static_cast<int>(deadline.remainingTime());
}

/// The first instance may hold its lock a moment before it listens, so refusals are tried again.
bool connectTo(QLocalSocket& socket, QString const& path, QDeadlineTimer const& deadline)
{
    while (!deadline.hasExpired()) {
        socket.connectToServer(path);
        if (socket.waitForConnected(remainingMs(deadline)))
            return true;
        socket.abort();
        QThread::msleep(retryIntervalMs);
    }
    return false;
}

} // namespace

QString SingleInstance::idOfProfile(QString const& program)
{
    constexpr qsizetype digits = 12; // The path of a socket has 107 bytes at most.
    QString const directory = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    QByteArray const name = QFile::encodeName(QDir::cleanPath(directory)); // It need not be there yet.
    QByteArray const hash = QCryptographicHash::hash(name, QCryptographicHash::Sha256).toHex();
    return program + '-' + QString::fromLatin1(hash.first(digits));
}

SingleInstance::SingleInstance(QString const& id, QObject* parent) : QObject(parent)
{
    connect(&_server, &QLocalServer::newConnection, this, &SingleInstance::onNewConnection);
    QString const directory = privateDirectory();
    if (directory.isEmpty())
        return;
    _socketPath = QDir(directory).filePath(id + QLatin1String(".socket"));
    _lock = std::make_unique<QLockFile>(QDir(directory).filePath(id + QLatin1String(".lock")));
    _lock->setStaleLockTime(0); // Only the death of its holder makes a lock stale, never its age.
}

SingleInstance::~SingleInstance()
{
    for (QLocalSocket* const client : std::as_const(_clients))
        client->disconnect(this);
}

bool SingleInstance::isFirst()
{
    if (!_lock || _lock->isLocked())
        return true;
    if (_lock->tryLock(0)) {
        listen();
        return true;
    }
    if (_lock->error() == QLockFile::LockFailedError)
        return false;
    LOG_WARNING("Could not make the lock of the first instance beside %s", qPrintable(_socketPath));
    return true;
}

void SingleInstance::listen()
{
    QLocalServer::removeServer(_socketPath); // Left behind by an instance that crashed.
    _server.setSocketOptions(QLocalServer::UserAccessOption);
    if (!_server.listen(_socketPath))
        LOG_WARNING("Could not listen for other instances on %s: %s", qPrintable(_socketPath),
                    qPrintable(_server.errorString()));
}

bool SingleInstance::sendMessage(QString const& message, int timeoutMs) const
{
    QByteArray const text = message.toUtf8();
    if (_socketPath.isEmpty() || text.size() > maximumMessageBytes)
        return false;
    QByteArray data(headerBytes, '\0');
    qToBigEndian(static_cast<quint32>(text.size()), data.data());
    data += text;

    QDeadlineTimer const deadline(timeoutMs);
    QLocalSocket socket;
    if (!connectTo(socket, _socketPath, deadline))
        return false;
    socket.write(data);
    while (socket.bytesToWrite() > 0)
        if (!socket.waitForBytesWritten(remainingMs(deadline)))
            return false;
    qint64 const answerBytes = static_cast<qint64>(qstrlen(acknowledgement));
    while (socket.bytesAvailable() < answerBytes)
        if (!socket.waitForReadyRead(remainingMs(deadline)))
            return false;
    return socket.read(answerBytes) == acknowledgement;
}

void SingleInstance::onNewConnection()
{
    while (QLocalSocket* const client = _server.nextPendingConnection()) {
        client->setReadBufferSize(headerBytes + maximumMessageBytes);
        connect(client, &QLocalSocket::disconnected, this, [this, client] {
            _clients.removeOne(client);
            client->deleteLater();
        });
        connect(client, &QLocalSocket::readyRead, this, [this, client] { onReadyRead(client); });
        auto* const timeout = new QTimer(client);
        connect(timeout, &QTimer::timeout, client, &QLocalSocket::abort);
        timeout->start(clientTimeoutMs);
        _clients.append(client);
        // The oldest client has to go before a new one goes unheard.
        if (_clients.size() > maximumClients)
            _clients.constFirst()->abort();
        onReadyRead(client);
    }
}

void SingleInstance::onReadyRead(QLocalSocket* client)
{
    char header[headerBytes];
    if (client->peek(header, headerBytes) < headerBytes)
        return;
    quint32 const length = qFromBigEndian<quint32>(header);
    if (length > maximumMessageBytes) {
        LOG_WARNING("Another instance announced a message of %u bytes", length);
        client->abort();
        return;
    }
    if (client->bytesAvailable() < headerBytes + static_cast<qint64>(length))
        return;
    client->skip(headerBytes);
    QStringDecoder decode(QStringDecoder::Utf8);
    QString const message = decode(client->read(length));
    if (decode.hasError()) {
        LOG_WARNING("Another instance sent %u bytes that are no text", length);
        client->abort();
        return;
    }
    disconnect(client, &QLocalSocket::readyRead, this, nullptr); // One message for each connection.
    client->write(acknowledgement);
    client->flush();
    client->disconnectFromServer();
    emit messageReceived(message);
}
