#include "DirectoryService.h"

#include "LocalServicesOptions.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QSaveFile>
#include <QTcpServer>

Logger* DirectoryService::log = LoggerManager::logger();

DirectoryService::DirectoryService(std::unique_ptr<Database> database, LocalServicesOptions const& options,
                                   TickCounter& tickCounter, TimerFactory& timerFactory,
                                   AccountCommands::Trigger const& trigger)
    : _tickCounter(tickCounter), _timerFactory(timerFactory), _certificateFile(options.certificateFile),
      _listenAddress(options.address), _isPortGiven(options.isWebPortGiven),
      _rtspPath(options.rtsp.mid(options.rtsp.indexOf('/'))), _database(std::move(database)), _accounts(*_database),
      _settings(*_database), _messages(*_database), _directory(*_database),
      _doorkeeper(_accounts, tickCounter, timerFactory, options.passwordIterations), _hls(tickCounter),
      _myChannels(_accounts, _directory, _doorkeeper, tickCounter),
      _api({_accounts, _doorkeeper, _settings, _messages, _directory, _places}),
      _site({_api, _directory, _accounts, _myChannels, _hls, _places}, options.maximumAge),
      _accountCommands({_accounts, _messages, _settings, trigger, options.passwordIterations}),
      _channelCommands(_directory, _accounts)
{
    _places.rtsp = options.rtsp.section('/', 0, 0);
    connect(&_directory, &Directory::changed, this, [trigger] { trigger(0); });
    connect(&_directory, &Directory::changedFor, this, trigger);
}

bool DirectoryService::start(LocalServicesOptions const& options, QString& error)
{
    for (LocalServicesOptions::Stream const& film : options.hls) {
        if (!_hls.add(film.name, film.files.last(), error))
            return false;
    }
    if (options.webPort) {
        _http = makeServer();
        if (!listen(*_http, *options.webPort, Deployment::servicePort, {}, error))
            return false;
    }
    if (options.webTlsPort && !startTls(options, error))
        return false;
    QList<WebServer*> servers;
    for (WebServer* const server : {_http.get(), _https.get()}) {
        if (server)
            servers.append(server);
    }
    _webCommands = std::make_unique<WebCommands>(
        WebCommands::Parts{_faults, servers, [this](bool isExpired) { return renewCertificate(isExpired); }});
    return true;
}

std::unique_ptr<WebServer> DirectoryService::makeServer()
{
    return std::make_unique<WebServer>(
        WebServer::Site{
            [this](WebRequest const& request, WebServer::Reply const& reply) { _site.handle(request, reply); },
            &ServiceApi::methodOf,
            [](QString const& text) { return ServiceApi::fault(QStringLiteral("Server"), text); }},
        _faults, _tickCounter, _timerFactory);
}

/// The usual port may be taken, by another one of these services for example; one that was asked for has to be free.
bool DirectoryService::listen(WebServer& server, quint16 port, quint16 usual,
                              std::optional<WebCertificate> const& certificate, QString& error)
{
    if (port == usual && !_isPortGiven && !QTcpServer().listen(_listenAddress, port)) {
        LOG_WARNING("Web: port %u is taken; a free one is used, which players have to be told of", port);
        port = 0;
    }
    if (server.listen(_listenAddress, port, certificate))
        return true;
    error = QStringLiteral("Web: cannot listen on %1 port %2: %3")
                .arg(_listenAddress.toString())
                .arg(port)
                .arg(server.errorText());
    return false;
}

bool DirectoryService::startTls(LocalServicesOptions const& options, QString& error)
{
    auto const certificate = WebCertificate::make(WebCertificate::Validity::Good, _listenAddress.toString());
    if (!certificate || !QSslSocket::supportsSsl())
        error = QStringLiteral("Web: no certificate can be made for TLS; \"--web-tls-port none\" goes without");
    else if (!writeCertificate(*certificate))
        error = QStringLiteral("cannot write %1").arg(_certificateFile);
    if (!error.isEmpty())
        return false;
    _https = makeServer();
    return listen(*_https, *options.webTlsPort, Deployment::serviceTlsPort, certificate, error);
}

bool DirectoryService::renewCertificate(bool isExpired)
{
    using Validity = WebCertificate::Validity;
    auto const certificate =
        WebCertificate::make(isExpired ? Validity::Expired : Validity::Good, _listenAddress.toString());
    if (!_https || !certificate || !writeCertificate(*certificate))
        return false;
    _https->setCertificate(*certificate);
    return true;
}

bool DirectoryService::writeCertificate(WebCertificate const& certificate) const
{
    if (_certificateFile.isEmpty())
        return true;
    QSaveFile file(_certificateFile);
    return file.open(QIODevice::WriteOnly) && file.write(certificate.pem) >= 0 && file.commit();
}

void DirectoryService::setPlaces(quint16 mmsHttp, quint16 mmsTcp)
{
    _places.mmsHttp = mmsHttp;
    _places.mmsTcp = mmsTcp;
}

void DirectoryService::plant(QStringList const& television, QStringList const& radio)
{
    Seeds::plant(*_database, _accounts, _directory,
                 {television, radio, _hls.names(), _places.rtsp.isEmpty() ? QString() : _rtspPath});
}
