#pragma once

#include "AccountCommands.h"
#include "Accounts.h"
#include "ChannelCommands.h"
#include "Database.h"
#include "Directory.h"
#include "DirectorySite.h"
#include "Doorkeeper.h"
#include "HlsBroadcasts.h"
#include "MessageBoard.h"
#include "MyChannelsPage.h"
#include "Seeds.h"
#include "ServiceApi.h"
#include "ServicePlaces.h"
#include "SignInSettings.h"
#include "WebCommands.h"
#include "WebServer.h"

#include <QObject>

#include <memory>

struct LocalServicesOptions;

/// The directory and the accounts, put together: the database, what works on it, and the web server before it. Lives
/// on one thread.
class DirectoryService : public QObject
{
    Q_OBJECT

public:
    /// Clock and factory are borrowed; the database is this one's. `trigger` tells the programs of an account, or of
    /// all with 0, to ask anew.
    DirectoryService(std::unique_ptr<Database> database, LocalServicesOptions const& options,
                     TickCounter& tickCounter, TimerFactory& timerFactory, AccountCommands::Trigger const& trigger);

    /// Takes clients. False, and a text that tells why, when a port cannot be had, a film cannot be read or a file
    /// cannot be written.
    bool start(LocalServicesOptions const& options, QString& error);

    /// What there is besides, once it is known: where the streams are.
    void setPlaces(quint16 mmsHttp, quint16 mmsTcp);
    void plant(QStringList const& television, QStringList const& radio);

    Directory& directory() { return _directory; }

    /// The accounts that have signed in, those that did last in front.
    QList<qint64> lastSeen(int count) const { return _accounts.lastSeen(count); }

    /// The ports; 0 for one that is not served.
    quint16 port() const { return _http ? _http->port() : 0; }
    quint16 tlsPort() const { return _https ? _https->port() : 0; }
    QHostAddress address() const { return _http ? _http->address() : _https->address(); }

    AccountCommands& accountCommands() { return _accountCommands; }
    ChannelCommands& channelCommands() { return _channelCommands; }
    WebCommands& webCommands() { return *_webCommands; }

private:
    std::unique_ptr<WebServer> makeServer();
    bool listen(WebServer& server, quint16 port, quint16 usual, std::optional<WebCertificate> const& certificate,
                QString& error);
    bool startTls(LocalServicesOptions const& options, QString& error);
    bool renewCertificate(bool isExpired);
    bool writeCertificate(WebCertificate const& certificate) const;

    TickCounter& _tickCounter;
    TimerFactory& _timerFactory;
    QString const _certificateFile;
    QHostAddress const _listenAddress;
    bool const _isPortGiven;
    QString _rtspPath;
    std::unique_ptr<Database> const _database;
    Accounts _accounts;
    SignInSettings _settings;
    MessageBoard _messages;
    Directory _directory;
    Doorkeeper _doorkeeper;
    ServicePlaces _places;
    HlsBroadcasts _hls;
    MyChannelsPage _myChannels;
    ServiceApi _api;
    DirectorySite _site;
    WebFaultPlan _faults;
    AccountCommands _accountCommands;
    ChannelCommands _channelCommands;
    std::unique_ptr<WebServer> _http;  ///< Null unless it is served.
    std::unique_ptr<WebServer> _https; ///< The same.
    std::unique_ptr<WebCommands> _webCommands;

    static Logger* log;
};
