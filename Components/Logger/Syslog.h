#pragma once

#include <QHostAddress>
#include <QObject>
#include <QString>

/// Sends messages to a remote syslog collector (RFC 3164), one UDP datagram each. Nothing is ever read, and a
/// datagram that cannot be sent is lost without a word.
///
/// Any thread may send.
class Syslog : public QObject
{
    Q_OBJECT

public:
    /// A message is cut to this many characters.
    static constexpr int maximumMessageCharacters = 1024;

    /// Address and port as the settings say (logger/remoteSyslogIP, logger/remoteSyslogPort).
    explicit Syslog(QObject* parent = nullptr);
    Syslog(char const* address, unsigned short port, QObject* parent = nullptr);
    ~Syslog() override;

public slots:
    /// Sends the message as facility local0, severity notice.
    void send(QString const& hostname, QString const& message);

private:
    QHostAddress const _address;
    unsigned short const _port;
};
