#pragma once

#include "NetworkErrors.h"
#include "Uri.h"

#include <QByteArray>
#include <QDateTime>
#include <QObject>
#include <QString>

/// One open connection to a stream: delivers its bytes and the header that a demultiplexer needs first.
///
/// Lives on the thread of its LatteDataSource while it delivers: startBuffering() and stopBuffering() are called
/// there, with an event loop in between. state(), bytesAvailable(), bytesBuffered(), bufferByteLength(), read() and
/// descriptor() are called on any thread.
class LatteClient : public QObject
{
    Q_OBJECT

public:
    /// State 0 says that bytes may still come, as in a client that reconnects by itself; any other that none will.
    enum LatteClientState { Delivering = 0, Idle = 1, Finished = 2 };
    Q_ENUM(LatteClientState)

    using QObject::QObject;

    /// Starts and stops delivering.
    virtual void startBuffering() = 0;
    virtual void stopBuffering() = 0;

    /// The address opened.
    virtual Uri uri() const = 0;
    virtual LatteClientState state() const = 0;

    /// The buffer size wanted, in bytes.
    virtual qint64 bufferByteLength() const = 0;
    virtual void setBufferByteLength(qint64 length) = 0;

    /// Discards what is buffered.
    virtual void clearBuffer() = 0;

    /// How many bytes read() can return now.
    virtual qint64 bytesAvailable() const = 0;

    /// Seeks, where the client supports it.
    virtual void seekToTime(QDateTime const& time) = 0;

    /// Takes up to `size` bytes out of the buffer; returns how many, negative on an error.
    virtual qint64 read(char* data, qint64 size) = 0;

    virtual bool isSeekable() const = 0;

    /// The stream header in force at a byte offset of the stream; empty when there is none.
    virtual QByteArray descriptor(qint64 offset) const = 0;

    /// How many bytes are buffered, those included that are held back for now.
    virtual qint64 bytesBuffered() const { return bytesAvailable(); }

signals:
    void readyRead(LatteClient* client);
    void error(LatteClient* client, NetworkErrors::NetworkError code);
    void stateChanged(LatteClient* client);
    void descriptorChanged(LatteClient* client, qint64 offset);
    /// A text for the viewer.
    void progressChanged(LatteClient* client, QString text);
    /// The stream is delivered, at first and again after each loss of the link; the text for that came before.
    void playing(LatteClient* client);

protected:
    void announcePlaying()
    {
        emit progressChanged(this, QStringLiteral("Playing..."));
        emit playing(this);
    }
};
