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

    static constexpr qint64 msForToken = 10'000;
    static constexpr qint64 msOfSlice = 10; ///< With commands without end the services go on between them.

    /// The commands are borrowed.
    ControlConnection(std::unique_ptr<QTcpSocket> socket, ControlCommands& commands, QByteArray token);

protected:
    void received(QByteArray const& bytes) override;
    void check(qint64 msNow) override;
    void over() override;

private:
    void handleLines();
    bool handleNext();
    void handle(QString const& line);
    void answer(QStringList const& lines);

    ControlCommands& _commands;
    QByteArray const _token;
    bool _isTrusted = false; ///< Has told the token.
    qint64 _msFirstCheck = 0;
    QByteArray _buffer;
    bool _isNextPosted = false;

    static Logger* log;
};
