#pragma once

#include "Service.h"

#include <QByteArray>

class ControlCommands;

/// Takes commands as lines of text over TCP. The answer to each is its lines, if any, and then "OK" or "ERROR" and a
/// text. "quit" ends the connection.
///
/// Any program of this machine can connect, and a browser in the name of any web page. So the first line has to be
/// "token" and a blank and the token, which only those know who can read what the services have written; and the
/// connection ends with the first line that is no command.
class ControlServer : public Service
{
    Q_OBJECT

public:
    /// All but the parent are borrowed.
    ControlServer(ControlCommands& commands, QByteArray const& token, TickCounter& tickCounter,
                  TimerFactory& timerFactory, QObject* parent = nullptr);

    /// One that nobody can guess.
    static QByteArray createToken();

protected:
    ServiceConnection* createConnection(std::unique_ptr<QTcpSocket> socket) override;

private:
    ControlCommands& _commands;
    QByteArray const _token;
};
