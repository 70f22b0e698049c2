#include "BiscottiConnection.h"
#include "BiscottiFuzz.h"
#include "BiscottiServer.h"
#include "FakeTickCounter.h"
#include "FakeTimerFactory.h"

#include <QCoreApplication>
#include <QEvent>

#include <cstring>

namespace
{

/// A connected socket without a network.
class FakeSocket : public QTcpSocket
{
public:
    FakeSocket()
    {
        setSocketState(ConnectedState);
        setOpenMode(ReadWrite);
    }

    void feed(QByteArray const& bytes)
    {
        _in += bytes;
        emit readyRead();
    }

    qint64 bytesAvailable() const override { return _in.size() + QTcpSocket::bytesAvailable(); }

    QByteArray out; ///< What the server has said.

protected:
    qint64 readData(char* data, qint64 size) override
    {
        qint64 const count = std::min<qint64>(size, _in.size());
        std::memcpy(data, _in.constData(), static_cast<size_t>(count));
        _in.remove(0, count);
        return count;
    }
    qint64 writeData(char const* data, qint64 size) override
    {
        out.append(data, size);
        return size;
    }

private:
    QByteArray _in;
};

QByteArray const subscribeToAll = QByteArray::fromHex("a1148003612c31a50da20b800173810173a20381012e");

struct Outcome {
    QByteArray toSender;
    QByteArray toListener;
    bool operator==(Outcome const&) const = default;
};

/// What the server says to the sender of the bytes, and to a client that subscribes to all topics.
Outcome run(QByteArray const& bytes, QByteArray const& pattern)
{
    FakeTickCounter clock;
    FakeTimerFactory timers(clock);
    BiscottiServer server(clock, timers);
    auto listener = std::make_unique<FakeSocket>();
    auto sender = std::make_unique<FakeSocket>();
    FakeSocket* const listening = listener.get();
    FakeSocket* const sending = sender.get();
    server.adopt(std::move(listener));
    server.adopt(std::move(sender));
    listening->feed("~@ 1.0 1.0 \n" + subscribeToAll);
    BiscottiFuzz::require(server.broker().router().count() == 1);
    qsizetype turn = 0;
    for (qsizetype position = 0; position < bytes.size();) {
        qsizetype const piece = pattern.isEmpty() ? bytes.size() : 1 + (pattern[turn++ % pattern.size()] & 0x3F);
        sending->feed(bytes.mid(position, piece));
        position += piece;
    }
    return {sending->out, listening->out};
}

/// What follows the greeting is messages that a client can read.
void requireMessages(QByteArray const& bytes)
{
    QByteArray const messages = bytes.mid(bytes.indexOf('\n') + 1);
    DecodedMessages decoded(CentralisedBiscottiMessageDecoding::Ber);
    BiscottiFuzz::decode(decoded, messages, {});
    QByteArray told;
    for (DecodedMessages::Message const& message : decoded.messages)
        told += message.rawBytes;
    BiscottiFuzz::require(decoded.errors == 0 && told == messages);
}

} // namespace

/// Greeting and messages in pieces, whose sizes come from the first bytes. However they are split, the server answers
/// the same, and says nothing that a client cannot read.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static int argc = 0;
    static QCoreApplication const application(argc, nullptr);
    constexpr qsizetype patternBytes = 3;
    QByteArray const input(reinterpret_cast<char const*>(data), static_cast<qsizetype>(size));
    QByteArray const bytes = input.mid(patternBytes);
    Outcome const whole = run(bytes, {});
    BiscottiFuzz::require(whole == run(bytes, input.first(std::min(patternBytes, input.size()))));
    requireMessages(whole.toSender);
    requireMessages(whole.toListener);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
