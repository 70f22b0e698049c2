#pragma once

#include "ServiceConnection.h"

class ControlCommands;
class Logger;

/// One connection of the ControlServer.
class ControlConnection : public ServiceConnection
{
    Q_OBJECT

public:
    static constexpr qsizetype maximumLine = 4096; ///< Bytes. A longer line ends the connection.

    /// The commands are borrowed.
    ControlConnection(std::unique_ptr<QTcpSocket> socket, ControlCommands& commands);

protected:
    void received(QByteArray const& bytes) override;
    void check(qint64) override {} // May be silent for as long as it likes.

private:
    void handle(QString const& line);

    ControlCommands& _commands;
    QByteArray _buffer;

    static Logger* log;
};
