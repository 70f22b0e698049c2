#include "FileChannelDescriptionProvider.h"

#include "BoundedImage.h"
#include "ChannelFileReader.h"
#include "CheckFileMemo.h"
#include "DeleteLaterMemo.h"
#include "LoadLogosMemo.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MemoQueue.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QScopeGuard>

#include <stdexcept>

namespace
{

constexpr qint64 maximumFileBytes = 32 << 20;

/// Whether an id is the name of a file in a directory and nothing else.
bool isFileName(QString const& id)
{
    constexpr qsizetype maximumBytes = 200;
    return !id.isEmpty() && !id.startsWith('.') && !id.contains('/') && !id.contains(QChar(0)) &&
           QFile::encodeName(id).size() <= maximumBytes;
}

/// A pipe would be waited for until somebody writes, and nobody may.
bool openForReading(QFile& file)
{
    return QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly);
}

} // namespace

Logger* FileChannelDescriptionProvider::log = LoggerManager::logger();

FileChannelDescriptionProvider::FileChannelDescriptionProvider(MemoQueue* queue, QString const& file,
                                                               QString const& logoDirectory, int intervalMs,
                                                               QObject* parent)
    : ChannelDescriptionProvider(parent), _queue(queue), _file(file), _lastModified(lastModified()),
      _logoDirectory(logoDirectory), _intervalMs(intervalMs)
{
    _queue->acquire(this);
    scheduleCheck();
}

FileChannelDescriptionProvider::~FileChannelDescriptionProvider()
{
    _queue->release(this);
}

QDateTime FileChannelDescriptionProvider::lastModified() const
{
    return QFileInfo(_file).lastModified();
}

void FileChannelDescriptionProvider::scheduleCheck()
{
    _queue->handleSoon(static_cast<unsigned int>(_intervalMs), new CheckFileMemo(*this));
}

void FileChannelDescriptionProvider::start()
{
    _isRunning = true;
    load();
}

/// A memo that decodes logos may be running.
void FileChannelDescriptionProvider::retire()
{
    _queue->clear(this);
    _queue->handleNow(new DeleteLaterMemo(this));
}

void FileChannelDescriptionProvider::refresh()
{
    load();
}

void FileChannelDescriptionProvider::load()
{
    if (!_isRunning)
        return;
    int const reading = ++_readings;
    QList<ChannelDescription> channels = parse();
    QHash<QString, ChannelDescription> known;
    for (ChannelDescription const& channel : std::as_const(_channels))
        known.insert(channel.id(), channel);
    QStringList ids;
    for (ChannelDescription& channel : channels) {
        // The logos that are known stay until they have been loaded again.
        if (ChannelDescription const old = known.value(channel.id()); old.logoLoaded())
            channel.setLogo(old.packedLogo());
        ids.append(channel.id());
    }
    queueLogos(ids);
    publish(channels, reading);
}

/// The channels without their logos. Any thread.
QList<ChannelDescription> FileChannelDescriptionProvider::parse() const
{
    LOG_INFO("Parsing %s", qPrintable(_file));
    QFile file(_file);
    if (!openForReading(file)) {
        LOG_ERROR("%s: %s", qPrintable(_file),
                  QFileInfo(file).isFile() ? qPrintable(file.errorString()) : "There is no such file.");
        throw std::logic_error(QT_TRANSLATE_NOOP("ChannelFeed", "Couldn't open channel file."));
    }
    QByteArray const xml = file.read(maximumFileBytes);
    file.close();
    auto const result = ChannelFileReader::read(xml, QFileInfo(_file).absolutePath());
    if (!result.error.isEmpty())
        LOG_ERROR("%s: %s", qPrintable(_file), qPrintable(result.error));
    if (!result.error.isEmpty() && !result.hasBegun)
        throw std::logic_error(QT_TRANSLATE_NOOP("ChannelFeed", "Error parsing channel file."));
    return result.channels;
}

void FileChannelDescriptionProvider::checkFile()
{
    LOG_DEBUG("Scanning %s for changes.", qPrintable(_file));
    // Whatever comes of this look, there is a next one.
    QScopeGuard const next([this] { scheduleCheck(); });
    if (!_isRunning)
        return;
    QDateTime const modified = lastModified();
    if (modified == _lastModified) {
        LOG_DEBUG("No changes.");
        return;
    }
    LOG_INFO("%s has changed - reparsing.", qPrintable(_file));
    parseChangedFile();
    _lastModified = modified;
}

void FileChannelDescriptionProvider::parseChangedFile()
{
    int const reading = ++_readings;
    QList<ChannelDescription> channels = parse();
    for (ChannelDescription& channel : channels)
        channel.setLogo(logoOf(channel.id()));
    QMetaObject::invokeMethod(
        this, [this, channels, reading] { publish(channels, reading); }, Qt::QueuedConnection);
}

void FileChannelDescriptionProvider::publish(QList<ChannelDescription> const& channels, int reading)
{
    if (reading < _published || !_isRunning)
        return;
    _published = reading;
    _channels = channels;
    _placesOfId.clear();
    for (qsizetype place = 0; place < channels.size(); ++place) {
        _placesOfId.insert(channels.at(place).id(), place);
        LOG_DEBUG("Inserted channel description %s", qPrintable(channels.at(place).toString()));
    }
    updated();
}

void FileChannelDescriptionProvider::queueLogos(QStringList const& ids)
{
    _queue->handleNow(new LoadLogosMemo(*this, ids));
}

ChannelLogo FileChannelDescriptionProvider::logoOf(QString const& id) const
{
    QFile file(_logoDirectory + "/" + id + ".png");
    if (!isFileName(id) || !openForReading(file))
        return {};
    return ChannelLogo(BoundedImage::decode(file.read(BoundedImage::maximumBytes + 1)));
}

void FileChannelDescriptionProvider::loadLogos(QStringList const& ids)
{
    Logos logos;
    for (QString const& id : ids)
        logos.append({id, logoOf(id)});
    QMetaObject::invokeMethod(
        this, [this, logos] { setLogos(logos); }, Qt::QueuedConnection);
}

void FileChannelDescriptionProvider::setLogos(Logos const& logos)
{
    QList<ChannelDescription> changed; // Told when all is done, since whoever hears of it may change the list.
    for (auto const& [id, logo] : logos) {
        for (qsizetype const place : _placesOfId.values(id)) {
            ChannelDescription& channel = _channels[place];
            if (channel.logoLoaded() && channel.packedLogo() == logo)
                continue;
            channel.setLogo(logo);
            changed.append(channel);
        }
    }
    logosUpdated(changed);
}
