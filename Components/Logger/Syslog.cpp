#include "Syslog.h"

#include "Deployment.h"

#include <QNetworkProxy>
#include <QSettings>
#include <QUdpSocket>

Syslog::Syslog(QObject* parent)
    : Syslog(qPrintable(QSettings().value("logger/remoteSyslogIP", Deployment::remoteSyslogAddress).toString()),
             static_cast<unsigned short>(
                 QSettings().value("logger/remoteSyslogPort", Deployment::remoteSyslogPort).toUInt()),
             parent)
{
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
