#include "Syslog.h"

#include "Deployment.h"

#include <QNetworkProxy>
#include <QSettings>
#include <QUdpSocket>

namespace
{
constexpr BoundedNumber portNumber = {"logger/remoteSyslogPort", Deployment::remoteSyslogPort, 1,
                                      BoundedNumber::maximumPort};
}

Syslog::Syslog(QObject* parent) : Syslog(portNumber.read(QSettings()), parent) {}

Syslog::Syslog(BoundedNumber::Reading const& port, QObject* parent)
    : Syslog(qPrintable(QSettings().value("logger/remoteSyslogIP", Deployment::remoteSyslogAddress).toString()),
             static_cast<unsigned short>(port.value), parent)
{
    if (!port.complaint.isEmpty())
        _complaints.append(port.complaint);
}

Syslog::Syslog(char const* address, unsigned short port, QObject* parent)
    : QObject(parent), _address(QString::fromLatin1(address)), _port(port)
{
}

Syslog::~Syslog() = default;

void Syslog::send(QString const& hostname, QString const& message)
{
    QString const text = QString("<133>" + hostname + " " + message).left(maximumMessageCharacters);
    // A QUdpSocket belongs to the thread that made it; one per error lets every thread send without a lock.
    QUdpSocket socket;
    socket.setProxy(QNetworkProxy::NoProxy);
    socket.writeDatagram(text.toLocal8Bit(), _address, _port);
}
