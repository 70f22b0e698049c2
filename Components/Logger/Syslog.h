#pragma once

#include "BoundedNumber.h"

#include <QHostAddress>
#include <QObject>
#include <QString>
#include <QStringList>

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

    /// What was wrong with the settings, in words.
    QStringList complaints() const { return _complaints; }

public slots:
    /// Sends the message as facility local0, severity notice.
    void send(QString const& hostname, QString const& message);

private:
    Syslog(BoundedNumber::Reading const& port, QObject* parent);

    QStringList _complaints; ///< Set by the constructor only.
    QHostAddress const _address;
    unsigned short const _port;
};
