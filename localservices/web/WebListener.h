#pragma once

#include <QSslConfiguration>
#include <QTcpServer>

#include <optional>

class TickCounter;

/// Takes connections for the HTTP module, up to a number, encrypted or not, each with a WebConnection that looks
/// after it. Lives on one thread.
class WebListener : public QTcpServer
{
    Q_OBJECT

public:
    static constexpr int maximumConnections = 1000;

    /// The clock is borrowed.
    explicit WebListener(TickCounter& tickCounter);

    /// From now on, connections are encrypted.
    void setTls(QSslConfiguration const& tls) { _tls = tls; }

    int connectionCount() const;

    /// Looks after all connections.
    void check(qint64 msNow);

    /// Ends them all; answers how many.
    int drop();

protected:
    void incomingConnection(qintptr handle) override;

private:
    TickCounter& _tickCounter;
    std::optional<QSslConfiguration> _tls;
};
