#include "LiveStream.h"

#include "LatteClient.h"
#include "MmsLatteClientPrivate.h"

extern "C" {
#include <libavcodec/packet.h>
#include <libavformat/avformat.h>
}

#include <optional>
#include <stdexcept>

namespace
{

/// A source whose waits before an attempt to open pass twenty times as fast, without an effect on its network.
class ImpatientLatteSource : public LatteDataSource
{
public:
    using LatteDataSource::LatteDataSource;

protected:
    qint64 currentMilliseconds() const override { return 20 * LatteDataSource::currentMilliseconds(); }
};

} // namespace

StreamServers::StreamServers(QStringList const& films)
{
    _options.streams = {{QStringLiteral("/live"), films}};
    _options.controlPort = std::nullopt;
    _options.biscottiPort = std::nullopt;
    _options.webPort = std::nullopt;
    _options.webTlsPort = std::nullopt;
    start();
    for (QString const& line : _services->portLines().split('\n', Qt::SkipEmptyParts)) {
        LocalServicesOptions::Port& port = line.startsWith("mms-http") ? _options.mmsHttpPort : _options.mmsTcpPort;
        port = line.section(' ', 2).toUShort();
    }
}

void StreamServers::start()
{
    QString error;
    _services = std::make_unique<LocalServices>(_ticks, _timers);
    if (!_services->start(_options, error))
        throw std::runtime_error(error.toStdString());
}

QString StreamServers::document(QString const& ending) const
{
    return QStringLiteral("http://127.0.0.1:%1/live%2").arg(*_options.mmsHttpPort).arg(ending);
}

LatteClient* HurriedClientFactory::createLatteClient(Uri const& uri)
{
    LatteClient* const client = MmsLatteClientFactory::createLatteClient(uri);
    client->findChild<MmsLatteClientPrivate*>()->setReconnectionPolicy(ReconnectionPolicy(_clock, _chance));
    return client;
}

LiveNetwork::LiveNetwork()
    : _clients(QStringLiteral("{01234567-89ab-cdef-0123-456789abcdef}"), &_timers, &_sockets, &_http, &_dates,
               nullptr)
{
    for (char const* const scheme : {"mms", "http"})
        _latte.registerLatteClientFactory(UriScheme(QString::fromLatin1(scheme)), &_clients);
}

LiveStream::LiveStream(LiveNetwork& network, QString const& address)
    : _source(std::make_unique<ImpatientLatteSource>(network.latte(), StreamDescription(Uri(address)), QString()))
{
    LatteDataSource* const source = _source.get();
    QObject::connect(source, &GLMovieDataSource::stateChanged,
                     [this](GLMovieDataSource*, QString const& text) { _progress.append(text); });
    QObject::connect(source, &GLMovieDataSource::error,
                     [this](GLMovieDataSource*, QString const& text) { _errors.append(text); });
    QObject::connect(source, &GLMovieDataSource::playing, [this] { ++_plays; });
    QObject::connect(source, &GLMovieDataSource::opened, [this] {
        ++_openings;
        _ends = false;
        _reader.reset(QThread::create([this] { read(); }));
        _reader->start();
    });
    QObject::connect(source, &GLMovieDataSource::closed, [this] { stopReading(); });
    source->open();
}

LiveStream::~LiveStream()
{
    close();
}

void LiveStream::close()
{
    stopReading();
    _source->close();
}

void LiveStream::stopReading()
{
    if (!_reader)
        return;
    _ends = true;
    _source->setInterrupted(true);
    _reader->wait();
    _reader.reset();
    _source->setInterrupted(false);
}

void LiveStream::read()
{
    AVStream const* const video = _source->videoStream();
    AVPacket* packet = av_packet_alloc();
    std::optional<double> previous;
    while (!_ends) {
        int const result = _source->readFrame(packet);
        if (result == AVERROR(EAGAIN))
            continue;
        if (result < 0)
            break;
        if (video && packet->stream_index == video->index) {
            double const time = static_cast<double>(packet->pts) * av_q2d(video->time_base);
            _wentBackwards = _wentBackwards || (previous && time < *previous);
            previous = time;
            ++_videoFrames;
        }
        _source->freeFrame(packet);
    }
    av_packet_free(&packet);
}
