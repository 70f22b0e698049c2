#pragma once

#include "Service.h"

class ControlCommands;

/// Takes commands as lines of text over TCP. The answer to each is its lines, if any, and then "OK" or "ERROR" and a
/// text. "quit" ends the connection.
class ControlServer : public Service
{
    Q_OBJECT

public:
    /// All but the parent are borrowed.
    ControlServer(ControlCommands& commands, TickCounter& tickCounter, TimerFactory& timerFactory,
                  QObject* parent = nullptr);

protected:
    ServiceConnection* createConnection(std::unique_ptr<QTcpSocket> socket) override;

private:
    ControlCommands& _commands;
};
