#include "ControlConnection.h"

#include "ControlCommands.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QElapsedTimer>

#include <utility>

Logger* ControlConnection::log = LoggerManager::logger();

ControlConnection::ControlConnection(std::unique_ptr<QTcpSocket> socket, ControlCommands& commands, QByteArray token)
    : ServiceConnection(std::move(socket)), _commands(commands), _token(std::move(token))
{
}

void ControlConnection::received(QByteArray const& bytes)
{
    _buffer += bytes;
    handleLines();
}

/// As many as fit into a slice; what comes meanwhile waits at the client.
void ControlConnection::handleLines()
{
    QElapsedTimer time;
    time.start();
    while (!isFinishing() && handleNext()) {
        if (time.elapsed() < msOfSlice)
            continue;
        pauseReading();
        if (!std::exchange(_isNextPosted, true))
            QMetaObject::invokeMethod(
                this,
                [this] {
                    _isNextPosted = false;
                    handleLines();
                },
                Qt::QueuedConnection);
        return;
    }
    if (isFinishing())
        _buffer.clear();
    else if (_buffer.size() > maximumLine)
        refuse(QStringLiteral("its command is longer than %1 bytes").arg(maximumLine));
    else
        resumeReading();
}

/// False when there is no whole line, or one that is too long.
bool ControlConnection::handleNext()
{
    qsizetype const end = _buffer.indexOf('\n');
    if (end < 0 || end > maximumLine)
        return false;
    QString const line = QString::fromUtf8(_buffer.first(end)).simplified();
    _buffer.remove(0, end + 1);
    handle(line);
    return true;
}

/// What was said before is done all the same.
void ControlConnection::over()
{
    while (handleNext()) {
    }
}

void ControlConnection::handle(QString const& line)
{
    if (!_isTrusted) {
        _isTrusted = line == QStringLiteral("token ") + QString::fromLatin1(_token);
        if (_isTrusted)
            return;
        answer({QStringLiteral("ERROR the first line has to be \"token\" and the token of the ports file")});
        return refuse(QStringLiteral("it does not tell the token"));
    }
    if (line == "quit")
        return finish();
    LOG_INFO("%s: %s", qUtf8Printable(peer()), qUtf8Printable(ControlCommands::withoutSecrets(line)));
    ControlCommands::Answer const result = _commands.run(line);
    answer(result.lines +
           QStringList(result.error.isEmpty() ? QStringLiteral("OK") : QStringLiteral("ERROR ") + result.error));
    if (!result.isCommand)
        refuse(QStringLiteral("what it says is no command"));
}

void ControlConnection::answer(QStringList const& lines)
{
    send((lines.join('\n') + '\n').toUtf8());
}

/// Who has told the token may be silent for as long as he likes.
void ControlConnection::check(qint64 msNow)
{
    if (_msFirstCheck == 0)
        _msFirstCheck = msNow;
    if (!_isTrusted && msNow - _msFirstCheck > msForToken)
        drop(QStringLiteral("it does not tell the token"));
}
