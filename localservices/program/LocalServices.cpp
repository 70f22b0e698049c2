#include "LocalServices.h"

#include "AsfFile.h"
#include "BiscottiCommands.h"
#include "BiscottiServer.h"
#include "ControlServer.h"
#include "DirectoryService.h"
#include "LocalServicesOptions.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MmsHttpServer.h"
#include "MmsTcpServer.h"

#include <utility>

Logger* LocalServices::log = LoggerManager::logger();

LocalServices::LocalServices(TickCounter& tickCounter, TimerFactory& timerFactory, QObject* parent)
    : QObject(parent), _tickCounter(tickCounter), _timerFactory(timerFactory),
      _controlToken(ControlServer::createToken())
{
}

LocalServices::~LocalServices() = default;

bool LocalServices::start(LocalServicesOptions const& options, QString& error)
{
    if (!openStreams(options, error))
        return false;
    if (!options.streams.isEmpty() && !startStreamServers(options, error))
        return false;
    if (options.biscottiPort && !startBiscotti(options, error))
        return false;
    if ((options.webPort || options.webTlsPort) && !(openDirectory(options, error) && startDirectory(options, error)))
        return false;
    if (options.controlPort &&
        !startService(QStringLiteral("control"),
                      std::make_unique<ControlServer>(_commands, _controlToken, _tickCounter, _timerFactory),
                      QHostAddress(QHostAddress::LocalHost), *options.controlPort, error))
        return false;
    _documents.setPorts(portOf(QStringLiteral("mms-http")), portOf(QStringLiteral("mms-tcp")));
    if (_directory)
        _directory->setPlaces(portOf(QStringLiteral("mms-http")), portOf(QStringLiteral("mms-tcp")));
    if (_directory && options.hasSeeds)
        plantSeeds();
    _documents.setDeadEntries(options.deadEntries);
    for (QString const& command : options.commands) {
        ControlCommands::Answer const answer = _commands.run(command);
        if (!answer.error.isEmpty()) {
            error = QStringLiteral("%1: %2").arg(command, answer.error);
            return false;
        }
    }
    return true;
}

bool LocalServices::startStreamServers(LocalServicesOptions const& options, QString& error)
{
    if (options.mmsHttpPort &&
        !startService(QStringLiteral("mms-http"),
                      std::make_unique<MmsHttpServer>(_catalogue, _faults, &_documents, _tickCounter, _timerFactory),
                      options.address, *options.mmsHttpPort, error))
        return false;
    return !options.mmsTcpPort ||
           startService(QStringLiteral("mms-tcp"),
                        std::make_unique<MmsTcpServer>(_catalogue, _faults, _tickCounter, _timerFactory),
                        options.address, *options.mmsTcpPort, error);
}

namespace
{
bool isFree(QHostAddress const& address, quint16 port)
{
    return QTcpServer().listen(address, port);
}
} // namespace

bool LocalServices::startBiscotti(LocalServicesOptions const& options, QString& error)
{
    auto server = std::make_unique<BiscottiServer>(_tickCounter, _timerFactory);
    auto commands = std::make_unique<BiscottiCommands>(*server);
    BiscottiServer* const running = server.get();
    quint16 port = *options.biscottiPort;
    if (port != 0 && !options.isBiscottiPortGiven && !isFree(options.address, port)) {
        LOG_WARNING("Biscotti: port %u is taken; a free one is used, which players have to be told of", port);
        port = 0;
    }
    if (!startService(QStringLiteral("biscotti"), std::move(server), options.address, port, error))
        return false;
    _biscottiServer = running;
    _biscotti = std::move(commands);
    _commands.setBiscotti(_biscotti.get());
    return true;
}

bool LocalServices::openDirectory(LocalServicesOptions const& options, QString& error)
{
    QString const file = options.database.isEmpty() ? LocalServicesOptions::usualDatabase() : options.database;
    auto database = Database::open(file == ":memory:" ? QString() : file, error);
    if (!database)
        return false;
    _directory = std::make_unique<DirectoryService>(std::move(database), options, _tickCounter, _timerFactory,
                                                    [this](qint64 account) { trigger(account); });
    connect(&_directory->directory(), &Directory::changed, this, &LocalServices::followKeysSoon);
    followKeys();
    return true;
}

bool LocalServices::startDirectory(LocalServicesOptions const& options, QString& error)
{
    if (!_directory->start(options, error))
        return false;
    auto const add = [&](char const* name, auto const& run) { _commands.addCommand(QString::fromLatin1(name), run); };
    add("account", [this](QStringList const& words, QStringList& lines) {
        return _directory->accountCommands().account(words, lines);
    });
    add("message", [this](QStringList const& words, QStringList& lines) {
        return _directory->accountCommands().message(words, lines);
    });
    add("signin", [this](QStringList const& words, QStringList& lines) {
        return _directory->accountCommands().signIn(words, lines);
    });
    add("channel", [this](QStringList const& words, QStringList& lines) {
        return _directory->channelCommands().channel(words, lines);
    });
    add("stream", [this](QStringList const& words, QStringList& lines) {
        return _directory->channelCommands().stream(words, lines);
    });
    add("web",
        [this](QStringList const& words, QStringList& lines) { return _directory->webCommands().run(words, lines); });
    return true;
}

void LocalServices::plantSeeds()
{
    QStringList television;
    QStringList radio;
    for (Broadcast const* const broadcast : _catalogue.all()) {
        bool hasPicture = false;
        for (AsfHeader::Stream const& stream : broadcast->film().header().streams())
            hasPicture = hasPicture || stream.kind == AsfHeader::Kind::Video;
        (hasPicture ? television : radio).append(broadcast->name());
    }
    _directory->plant(television, radio);
}

/// Once for all that change together: it reads the whole directory.
void LocalServices::followKeysSoon()
{
    if (!std::exchange(_isToFollowKeys, true))
        QMetaObject::invokeMethod(this, &LocalServices::followKeys, Qt::QueuedConnection);
}

/// The streams of channels with a key are secure.
void LocalServices::followKeys()
{
    _isToFollowKeys = false;
    _catalogue.clearKeys();
    for (DirectoryChannel const& channel : _directory->directory().all()) {
        for (QString const& uri : channel.uris) {
            if (channel.isSecure() && uri.startsWith("{mms-"))
                _catalogue.setKey(uri.section('}', 1), channel.field("key").toUtf8());
        }
    }
}

/// Posts what players subscribe to who are signed in: their channels may have changed.
void LocalServices::trigger(qint64 account)
{
    constexpr int maximumTold = 10'000;
    if (!_biscottiServer)
        return;
    QList<qint64> const accounts = account != 0 ? QList<qint64>{account} : _directory->lastSeen(maximumTold);
    for (qint64 const one : accounts)
        _biscottiServer->announce(
            BiscottiTopic(QStringLiteral(".ombra.mychannels.trigger.refresh.user")).append(QString::number(one)));
}

bool LocalServices::openStreams(LocalServicesOptions const& options, QString& error)
{
    for (LocalServicesOptions::Stream const& stream : options.streams) {
        std::vector<std::unique_ptr<AsfFile>> films;
        for (QString const& file : stream.files) {
            films.push_back(AsfFile::open(file, error));
            if (!films.back())
                return false;
        }
        _catalogue.add(std::make_unique<Broadcast>(stream.name, std::move(films),
                                                   static_cast<int>(options.burstSeconds * 1000), _tickCounter,
                                                   _timerFactory));
    }
    return true;
}

bool LocalServices::startService(QString const& key, std::unique_ptr<Service> service, QHostAddress const& address,
                                 quint16 port, QString& error)
{
    if (!service->listen(address, port)) {
        error = QStringLiteral("%1: cannot listen on %2 port %3: %4")
                    .arg(service->name(), address.toString())
                    .arg(port)
                    .arg(service->errorText());
        return false;
    }
    _commands.addService(service.get());
    _services.emplace_back(key, std::move(service));
    return true;
}

QString LocalServices::portLines() const
{
    QString lines;
    for (auto const& [key, service] : _services)
        lines += QStringLiteral("%1 %2 %3%4\n")
                     .arg(key, service->address().toString())
                     .arg(service->port())
                     .arg(key == "control" ? u' ' + QString::fromLatin1(_controlToken) : QString());
    if (_directory && _directory->port() != 0)
        lines += QStringLiteral("web %1 %2\n").arg(_directory->address().toString()).arg(_directory->port());
    if (_directory && _directory->tlsPort() != 0)
        lines += QStringLiteral("web-tls %1 %2\n").arg(_directory->address().toString()).arg(_directory->tlsPort());
    return lines;
}

quint16 LocalServices::portOf(QString const& key) const
{
    for (auto const& [known, service] : _services) {
        if (known == key)
            return service->port();
    }
    return 0;
}
