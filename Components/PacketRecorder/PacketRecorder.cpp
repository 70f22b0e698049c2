#include "PacketRecorder.h"

#include "DetachedThreads.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MatroskaFile.h"

extern "C" {
#include <libavcodec/packet.h>
}

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QObject>

#include <system_error>

Logger* PacketRecorder::log = LoggerManager::logger();

namespace
{

/// The end of the program gives recorders a moment for what they have yet to write.
DetachedThreads& recorders()
{
    static DetachedThreads& threads = DetachedThreads::make(std::chrono::seconds(3));
    return threads;
}

} // namespace

std::shared_ptr<PacketRecorder> PacketRecorder::start(QString const& directoryAndName, StreamInfo const& streams,
                                                      bool dump, QObject* listener,
                                                      std::function<void(QString)> failed)
{
    auto recorder = std::make_shared<PacketRecorder>(directoryAndName, streams, dump, listener, std::move(failed));
    try {
        recorders().start([recorder] { recorder->run(); });
    } catch (std::system_error const& failure) {
        recorder->fail(QString::fromLocal8Bit(failure.what()));
    }
    return recorder;
}

PacketRecorder::PacketRecorder(QString const& directoryAndName, StreamInfo const& streams, bool dump,
                               QObject* listener, std::function<void(QString)> failed)
    : _directoryAndName(directoryAndName), _streams(streams), _dumps(dump), _listener(listener),
      _failed(std::move(failed))
{
}

PacketRecorder::~PacketRecorder()
{
    for (AVPacket* packet : _queue)
        av_packet_free(&packet);
}

void PacketRecorder::write(AVPacket const& packet)
{
    std::lock_guard const lock(_mutex);
    if (_finished || !_listener || _tooSlow)
        return;
    _tooSlow = _queuedBytes + packet.size > maximumQueuedBytes;
    if (AVPacket* const reference = _tooSlow ? nullptr : av_packet_clone(&packet)) {
        _queue.push_back(reference);
        _queuedBytes += packet.size;
    }
    _changed.notify_one();
}

void PacketRecorder::finish()
{
    std::lock_guard const lock(_mutex);
    _finished = true;
    _changed.notify_one();
}

void PacketRecorder::forgetListener()
{
    std::lock_guard const lock(_mutex);
    _listener = nullptr;
}

void PacketRecorder::run()
{
    bool goesOn = openFiles();
    while (AVPacket* packet = goesOn ? nextPacket() : nullptr) {
        goesOn = writePacket(*packet);
        av_packet_free(&packet);
    }
    if (_film && !_film->finish() && goesOn)
        fail(_film->errorString());
    LOG_INFO("Recorded %lld bytes", static_cast<long long>(_recordedBytes));
    _film.reset();
    _dump.reset();
}

AVPacket* PacketRecorder::nextPacket()
{
    std::unique_lock lock(_mutex);
    _changed.wait(lock, [this] { return _finished || _tooSlow || !_queue.empty(); });
    if (_tooSlow && !_finished) {
        lock.unlock();
        fail(QObject::tr("the disk is too slow"));
        return nullptr;
    }
    if (_queue.empty())
        return nullptr;
    AVPacket* const packet = _queue.front();
    _queue.pop_front();
    _queuedBytes -= packet->size;
    return packet;
}

bool PacketRecorder::openFiles()
{
    QString const stem = _directoryAndName + QDateTime::currentDateTime().toString("yyMMddhhmmss");
    QString const directory = QFileInfo(stem).path();
    if (!QDir().mkpath(directory)) {
        LOG_ERROR("Could not record to file %s: %s", qPrintable(stem), "the directory cannot be made");
        fail(QObject::tr("%1 cannot be made").arg(directory));
        return false;
    }
    auto film = openFile(stem, ".mkv");
    if (film && _dumps)
        _dump = openFile(stem, ".dump");
    if (film)
        _film = std::make_unique<MatroskaFile>(std::move(film), _streams.recordable());
    return _film && (_dump || !_dumps);
}

std::unique_ptr<QFile> PacketRecorder::openFile(QString const& stem, QString const& suffix)
{
    auto file = std::make_unique<QFile>(stem + suffix);
    for (int number = 2; !file->open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered); ++number) {
        QString const path = file->fileName();
        if (!QFileInfo::exists(path)) { // Another reason than that the name is taken.
            LOG_ERROR("Could not record to file %s: %s", qPrintable(path), qPrintable(file->errorString()));
            fail(file->errorString());
            return nullptr;
        }
        file->setFileName(stem + '-' + QString::number(number) + suffix);
    }
    LOG_INFO("Recording to file %s", qPrintable(file->fileName()));
    return file;
}

bool PacketRecorder::writePacket(AVPacket& packet)
{
    int const size = packet.size;
    if (_dump && !writeDump(packet)) {
        fail(_dump->errorString());
        return false;
    }
    if (!_film->write(packet)) {
        fail(_film->errorString());
        return false;
    }
    _recordedBytes += size;
    return true;
}

bool PacketRecorder::writeDump(AVPacket const& packet)
{
    // Unbuffered, so that the dump is usable after a crash.
    return MatroskaFile::writeAll(*_dump, reinterpret_cast<char const*>(packet.data), packet.size);
}

void PacketRecorder::fail(QString const& reason)
{
    LOG_ERROR("Recording stopped after %lld bytes: %s", static_cast<long long>(_recordedBytes), qPrintable(reason));
    std::lock_guard const lock(_mutex);
    // Under the lock, so that the listener cannot go in between; it only puts a call in its queue.
    if (_listener)
        QMetaObject::invokeMethod(
            _listener, [failed = _failed, reason] { failed(reason); }, Qt::QueuedConnection);
    _listener = nullptr;
}
