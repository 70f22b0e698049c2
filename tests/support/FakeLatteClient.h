#pragma once

#include "LatteClient.h"
#include "LatteClientFactory.h"

#include <QThread>

#include <algorithm>
#include <cstring>
#include <mutex>

/// A client whose header, data and state the test sets by hand. Setters are for any thread; each signals as a real
/// client would.
class FakeLatteClient : public LatteClient
{
public:
    explicit FakeLatteClient(Uri const& uri) : _uri(uri) {}

    void setDescriptor(QByteArray const& descriptor)
    {
        set(_descriptor, descriptor);
        emit descriptorChanged(this, 0);
    }
    void deliver(QByteArray const& bytes)
    {
        {
            std::lock_guard const lock(_mutex);
            _buffer.append(bytes);
        }
        emit readyRead(this);
    }
    void setState(LatteClientState state)
    {
        set(_state, state);
        emit stateChanged(this);
    }
    void report(NetworkErrors::NetworkError code) { emit error(this, code); }

    /// Reads give whole multiples of this only.
    void setPacketSize(qint64 size) { set(_packetSize, size); }

    QThread* threadOfStart() const { return get(_threadOfStart); }
    QThread* threadOfStop() const { return get(_threadOfStop); }
    /// Reads that asked for no byte at all. A real client answers each read with readyRead.
    int emptyReads() const { return get(_emptyReads); }

    void startBuffering() override { set(_threadOfStart, QThread::currentThread()); }
    void stopBuffering() override { set(_threadOfStop, QThread::currentThread()); }
    Uri uri() const override { return _uri; }
    LatteClientState state() const override { return get(_state); }
    qint64 bufferByteLength() const override { return 1000; }
    void setBufferByteLength(qint64) override {}
    void clearBuffer() override { set(_buffer, QByteArray()); }
    qint64 bytesAvailable() const override
    {
        std::lock_guard const lock(_mutex);
        return _buffer.size() < _packetSize ? 0 : _buffer.size();
    }
    void seekToTime(QDateTime const&) override {}
    qint64 read(char* data, qint64 size) override
    {
        std::lock_guard const lock(_mutex);
        _emptyReads += size == 0;
        qint64 count = std::min<qint64>(size, _buffer.size());
        count -= count % _packetSize;
        std::memcpy(data, _buffer.constData(), static_cast<size_t>(count));
        _buffer.remove(0, count);
        return count;
    }
    bool isSeekable() const override { return false; }
    QByteArray descriptor(qint64) const override { return get(_descriptor); }

private:
    template<typename T>
    void set(T& field, T const& value)
    {
        std::lock_guard const lock(_mutex);
        field = value;
    }
    template<typename T>
    T get(T const& field) const
    {
        std::lock_guard const lock(_mutex);
        return field;
    }

    Uri const _uri;
    mutable std::mutex _mutex; ///< Guards what follows.
    LatteClientState _state = Delivering;
    QByteArray _buffer;
    QByteArray _descriptor;
    qint64 _packetSize = 1;
    int _emptyReads = 0;
    QThread* _threadOfStart = nullptr;
    QThread* _threadOfStop = nullptr;
};

/// Hands out one fake client after another, and remembers the last.
class FakeLatteClientFactory : public LatteClientFactory
{
public:
    LatteClient* createLatteClient(Uri const& uri) override { return client = new FakeLatteClient(uri); }
    void disposeLatteClient(LatteClient* disposed) override
    {
        ++disposals;
        delete disposed;
        client = nullptr;
    }

    FakeLatteClient* client = nullptr;
    int disposals = 0;
};
