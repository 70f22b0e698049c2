#pragma once

#include "TcpSocketFactory.h"

class Logger;

/// Makes QtTcpSockets. Holds no state: any thread may use it for sockets of its own.
class QtTcpSocketFactory : public TcpSocketFactory
{
public:
    TcpSocket* createTcpSocket(QObject* parent) override;
    void disposeTcpSocket(TcpSocket* socket) override;

private:
    static Logger* log;
};
