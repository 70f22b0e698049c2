#include "Demuxer.h"

#include "DetachedThreads.h"
#include "KeyFrameSeek.h"
#include "StreamOpener.h"

extern "C" {
#include <libavcodec/packet.h>
#include <libavformat/avformat.h>
}

#include <QObject>

#include <algorithm>
#include <chrono>
#include <malloc.h>
#include <system_error>

namespace
{

/// The end of the program gives them a moment to close what they have open.
DetachedThreads& demuxers()
{
    static DetachedThreads& threads = DetachedThreads::make(std::chrono::seconds(1));
    return threads;
}

} // namespace

std::vector<StreamSnapshot> StreamInfo::recordable() const
{
    std::vector<StreamSnapshot> streams;
    for (StreamSnapshot const& stream : {videoSnapshot, audioSnapshot})
        if (stream.parameters && !stream.isCover)
            streams.push_back(stream);
    return streams;
}

std::shared_ptr<Demuxer> Demuxer::start(Opening opening, int deadline, QObject* listener,
                                        std::function<void()> opened)
{
    auto demuxer = std::make_shared<Demuxer>(std::move(opening), deadline);
    try {
        demuxers().start([demuxer, listener, opened] {
            if (demuxer->run(listener, opened))
                malloc_trim(0); // What a stream used lies in the heaps of many threads, which keep it for ever.
        });
    } catch (std::system_error const&) { // The machine has no thread left.
        demuxer->finishOpening(nullptr, listener, opened);
    }
    return demuxer;
}

Demuxer::Demuxer(Opening opening, int deadline) : _opening(std::move(opening)), _deadline(deadline) {}

Demuxer::~Demuxer()
{
    clearResults();
}

void Demuxer::abandon()
{
    std::lock_guard const lock(_mutex);
    _abandoned = true;
    _endCall = true;
    _work.notify_all();
    _answer.notify_all();
}

bool Demuxer::isAbandoned() const
{
    std::lock_guard const lock(_mutex);
    return _abandoned;
}

bool Demuxer::isOpen() const
{
    std::lock_guard const lock(_mutex);
    return _isOpen;
}

StreamInfo Demuxer::info() const
{
    std::lock_guard const lock(_mutex);
    return _info;
}

void Demuxer::retire()
{
    std::lock_guard const lock(_mutex);
    _retired = true;
    _endCall = true;
    clearResults();
    _work.notify_all();
    _answer.notify_all();
}

void Demuxer::finish()
{
    std::lock_guard const lock(_mutex);
    _results.push_back({nullptr, AVERROR_EOF});
    _answer.notify_all();
}

int Demuxer::read(AVPacket* packet, int limit)
{
    std::unique_lock lock(_mutex);
    if (_results.empty()) {
        _wanted = true;
        _work.notify_one();
        auto const isOver = [this] { return _interrupted || _abandoned || !_results.empty(); };
        if (limit < 0 || _retired)
            _answer.wait(lock, isOver);
        else if (!_answer.wait_for(lock, std::chrono::milliseconds(limit), isOver))
            return AVERROR(ETIMEDOUT);
    }
    if (_interrupted || _abandoned)
        return AVERROR_EXIT;
    Result const result = _results.front();
    _results.pop_front();
    if (_results.size() == readAhead / 2)
        _work.notify_one();
    if (result.packet) {
        av_packet_move_ref(packet, result.packet);
        AVPacket* empty = result.packet;
        av_packet_free(&empty);
    }
    return result.error;
}

int Demuxer::seek(AVStream const* stream, long long timestamp, int flags)
{
    std::unique_lock lock(_mutex);
    if (!_isOpen || !stream)
        return AVERROR(EINVAL);
    if (_interrupted || _abandoned || _retired)
        return AVERROR_EXIT;
    unsigned int const number = ++_seekNumber;
    _seek = Seek{stream->index, timestamp, flags, number};
    clearResults();
    _endCall = true;
    _work.notify_one();
    auto const isOver = [&] {
        return _interrupted || _abandoned || _retired || _seeksServed >= number || _seekNumber != number;
    };
    _answer.wait(lock, isOver);
    if (_seeksServed == number)
        return _seekResult;
    if (_seekNumber == number && _seek) {
        _seek.reset();
        _endCall = _abandoned || _retired; // The call that was to give way may go on, if it still does.
    } else if (_seekNumber == number)
        _endCall = true;
    return AVERROR_EXIT;
}

void Demuxer::setInterrupted(bool interrupted)
{
    std::lock_guard const lock(_mutex);
    _interrupted = interrupted;
    _answer.notify_all();
}

AVIOInterruptCB Demuxer::interruptCallback() const
{
    return {&Demuxer::interrupted, const_cast<Demuxer*>(this)};
}

int Demuxer::interrupted(void* opaque)
{
    auto* const demuxer = static_cast<Demuxer*>(opaque);
    if (demuxer->_endCall)
        demuxer->_callEnded = true;
    return demuxer->_callEnded || (!demuxer->_opened && demuxer->_deadline.hasExpired()) ? 1 : 0;
}

bool Demuxer::run(QObject* listener, std::function<void()> const& opened)
{
    FormatContextPointer const context = _opening(*this);
    if (!finishOpening(context.get(), listener, opened))
        return false;
    KeyFrameSeek seeker(*context, _endCall);
    while (serve(*context, seeker)) {
    }
    std::unique_lock lock(_mutex);
    if (!_abandoned) {
        lock.unlock();
        disconnect(*context);
        lock.lock();
    }
    _work.wait(lock, [this] { return _abandoned; }); // The streams are still in use.
    return true;
}

void Demuxer::disconnect(AVFormatContext& context)
{
    if (!(context.flags & AVFMT_FLAG_CUSTOM_IO) && !(context.iformat->flags & AVFMT_NOFILE))
        avio_closep(&context.pb);
}

bool Demuxer::finishOpening(AVFormatContext* context, QObject* listener, std::function<void()> const& opened)
{
    std::lock_guard const lock(_mutex);
    if (_abandoned)
        return false;
    _opened = true;
    _isOpen = context != nullptr;
    if (context)
        _info = StreamOpener::describe(*context);
    // Under the lock, so that the listener cannot abandon this, and go, in between; it only puts a call in its queue.
    QMetaObject::invokeMethod(listener, opened, Qt::QueuedConnection);
    return _isOpen;
}

bool Demuxer::serve(AVFormatContext& context, KeyFrameSeek& seeker)
{
    std::unique_lock lock(_mutex);
    _work.wait(lock, [this] { return _abandoned || _retired || _seek || mayRead(); });
    if (_abandoned || _retired)
        return false;
    _endCall = false;
    _callEnded = false;
    if (_seek)
        serveSeek(context, seeker, lock);
    else
        serveRead(context, lock);
    return true;
}

bool Demuxer::mayRead() const
{
    return _wanted || (_reading && _results.size() < readAhead);
}

void Demuxer::serveSeek(AVFormatContext& context, KeyFrameSeek& seeker, std::unique_lock<std::mutex>& lock)
{
    Seek const seek = *_seek;
    _seek.reset();
    lock.unlock();
    int const result = seeker.seek(seek.stream, seek.timestamp, seek.flags);
    forgetCutOff(context);
    lock.lock();
    clearResults();
    while (AVPacket* const packet = _seek ? nullptr : seeker.takePacket()) // Not before a newer seek's.
        _results.push_back({packet, 0});
    _reading = false; // Until someone wants what is there.
    _seeksServed = seek.number;
    _seekResult = result;
    _answer.notify_all();
}

void Demuxer::serveRead(AVFormatContext& context, std::unique_lock<std::mutex>& lock)
{
    AVPacket* packet = av_packet_alloc();
    lock.unlock();
    int result = packet ? av_read_frame(&context, packet) : AVERROR(ENOMEM);
    lock.lock();
    bool const isCutOff = result < 0 && (_endCall || _callEnded);
    bool const ioFailed = context.pb && context.pb->error < 0 && context.pb->error != AVERROR_EXIT;
    if (result == AVERROR_EOF && ioFailed)
        result = context.pb->error; // The end of what came is not the end of the film.
    if (result < 0)
        av_packet_free(&packet);
    if (_abandoned || _retired || _seek || isCutOff) { // What was cut off, or stood before a seek.
        av_packet_free(&packet);
        forgetCutOff(context);
        return;
    }
    _wanted = false;
    _reading = result >= 0;
    _results.push_back({packet, std::min(result, 0)});
    _answer.notify_all();
}

void Demuxer::forgetCutOff(AVFormatContext& context)
{
    if (!context.pb || context.pb->error != AVERROR_EXIT)
        return;
    context.pb->error = 0;
    context.pb->eof_reached = 0; // Or what comes next would be taken for the end.
}

void Demuxer::clearResults()
{
    for (Result& result : _results)
        av_packet_free(&result.packet);
    _results.clear();
}
