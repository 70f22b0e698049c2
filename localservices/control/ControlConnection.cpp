#include "ControlConnection.h"

#include "ControlCommands.h"
#include "Logger.h"
#include "LoggerManager.h"

Logger* ControlConnection::log = LoggerManager::logger();

ControlConnection::ControlConnection(std::unique_ptr<QTcpSocket> socket, ControlCommands& commands)
    : ServiceConnection(std::move(socket)), _commands(commands)
{
}

void ControlConnection::received(QByteArray const& bytes)
{
    _buffer += bytes;
    qsizetype used = 0;
    for (qsizetype end; !isFinishing() && (end = _buffer.indexOf('\n', used)) >= 0; used = end + 1) {
        if (end - used > maximumLine)
            break;
        handle(QString::fromUtf8(_buffer.sliced(used, end - used)).simplified());
    }
    _buffer.remove(0, used);
    if (!isFinishing() && _buffer.size() > maximumLine)
        refuse(QStringLiteral("its command is longer than %1 bytes").arg(maximumLine));
}

void ControlConnection::handle(QString const& line)
{
    if (line == "quit")
        return finish();
    LOG_INFO("%s: %s", qUtf8Printable(peer()), qUtf8Printable(line));
    ControlCommands::Answer answer = _commands.run(line);
    answer.lines.append(answer.error.isEmpty() ? QStringLiteral("OK") : QStringLiteral("ERROR ") + answer.error);
    send((answer.lines.join('\n') + '\n').toUtf8());
}
