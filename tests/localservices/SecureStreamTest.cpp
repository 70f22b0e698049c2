#include "BroadcastTestSupport.h"
#include "ByteCursor.h"
#include "LoopbackClient.h"
#include "MmsHttpServer.h"
#include "MmsTcpConnection.h"
#include "MmsTcpServer.h"
#include "StreamToken.h"

#include <QDateTime>

namespace
{
/// What MMS over TCP answers to the opening of this path.
quint32 resultOfOpening(quint16 port, QString const& path)
{
    QByteArray const funnel = "\\\\127.0.0.1\\TCP\\1037";
    auto const utf16 = [](QString const& text) {
        return QByteArray(reinterpret_cast<char const*>(text.utf16()), 2 * (text.size() + 1));
    };
    auto const message = [](quint32 type, QByteArray const& body = {}) {
        return MmsTcpReport::message(static_cast<MmsTcpReport::Type>(type), 0, body);
    };
    LoopbackClient client(port);
    client.say(message(MmsTcpRequest::Connect) +
               message(MmsTcpRequest::ConnectFunnel, QByteArray(20, '\0') + utf16(funnel)));
    processEventsUntil([&] { return client.heard().contains(QByteArray("\x02\x00\x04\x00", 4)); });
    client.forget();
    client.say(message(MmsTcpRequest::OpenFile, QByteArray(16, '\0') + utf16(path)));
    EXPECT_TRUE(processEventsUntil([&] { return client.heard().size() >= 44; }));
    return ByteCursor(client.heard(), 40).u32();
}
} // namespace

using SecureStreamTest = BroadcastFixture;

TEST_F(SecureStreamTest, BothServersWantAValidToken)
{
    live();
    catalogue.setKey("live", "secret");
    MmsHttpServer http(catalogue, faults, nullptr, clock, timers);
    MmsTcpServer tcp(catalogue, faults, clock, timers);
    ASSERT_TRUE(http.listen(QHostAddress::LocalHost, 0));
    ASSERT_TRUE(tcp.listen(QHostAddress::LocalHost, 0));
    qint64 const now = QDateTime::currentSecsSinceEpoch();
    auto const query = [](QByteArray const& token) -> QByteArray {
        return "?a=b&token=" + token.toPercentEncoding();
    };
    QByteArray const good = query(StreamToken::make("secret", "/live", now + 3600));
    QList<std::pair<QByteArray, bool>> const cases = {
        {good, true},
        {{}, false},
        {query(StreamToken::make("secret", "/live", now - 1)), false},
        {query(StreamToken::make("guess", "/live", now + 3600)), false},
    };
    for (auto const& [text, opens] : cases) {
        for (char const* const pragma : {"", "Pragma: xPlayStrm=1\r\n"}) {
            LoopbackClient client(http.port());
            client.say("GET /live" + text + " HTTP/1.1\r\n" + pragma + "\r\n");
            EXPECT_TRUE(client.waitFor(opens ? "HTTP/1.1 200" : "HTTP/1.1 403")) << text.constData();
            EXPECT_NE(client.heard().contains("$H"), !opens);
        }
        EXPECT_EQ(resultOfOpening(tcp.port(), "live" + QString::fromLatin1(text)),
                  opens ? MmsTcpConnection::success : MmsTcpConnection::accessDenied)
            << text.constData();
    }
    catalogue.setKey("/live", {});
    EXPECT_EQ(resultOfOpening(tcp.port(), "live"), MmsTcpConnection::success);
}
