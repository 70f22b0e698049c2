#include "CurlHandle.h"

#include "HttpRequestHeader.h"
#include "HttpServer.h"

#include <QUrl>

namespace
{

/// The bytes of a header's text: Latin-1, as received headers are read, or else UTF-8. Control characters, which
/// could begin a line of their own, become spaces.
QByteArray wireText(QString const& text)
{
    bool const isLatin1 = std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() < 0x100; });
    QByteArray bytes = isLatin1 ? text.toLatin1() : text.toUtf8();
    for (char& c : bytes)
        if ((c >= 0 && c < ' ' && c != '\t') || c == 0x7f)
            c = ' ';
    return bytes;
}

/// A request's path with what cannot stand in a request line percent-encoded.
QByteArray wirePath(QString const& path)
{
    static QByteArray const hexDigits = "0123456789ABCDEF";
    QByteArray bytes;
    QByteArray const utf8 = path.toUtf8();
    bytes.reserve(utf8.size());
    for (char const c : utf8) {
        auto const byte = static_cast<unsigned char>(c);
        if (byte <= ' ' || byte >= 0x7f)
            bytes.append('%').append(hexDigits.at(byte >> 4)).append(hexDigits.at(byte & 15));
        else
            bytes.append(c);
    }
    return bytes.isEmpty() ? QByteArray("/") : bytes;
}

QByteArray hostName(QString const& host)
{
    if (host.contains(':'))
        return (host.startsWith('[') ? host : QString("[" + host + "]")).toLatin1();
    QByteArray const encoded = QUrl::toAce(host);
    return encoded.isEmpty() ? host.toUtf8() : encoded;
}

} // namespace

CurlHandle::CurlHandle(void* owner) : _easy(curl_easy_init()), _url(curl_url())
{
    _aliases.reset(curl_slist_append(nullptr, "ICY "));
    set(CURLOPT_PRIVATE, owner);
    set(CURLOPT_ERRORBUFFER, _errorText.data());
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_QUICK_EXIT, 1L); // Or else dropping a request waits for its name lookup.
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_FOLLOWLOCATION, 0L);
    set(CURLOPT_SSL_VERIFYPEER, 1L);
    set(CURLOPT_SSL_VERIFYHOST, 2L);
    set(CURLOPT_HTTP200ALIASES, _aliases.get());
    set(CURLOPT_HTTP09_ALLOWED, 0L);
    set(CURLOPT_TCP_NODELAY, 1L);
    set(CURLOPT_TCP_KEEPALIVE, 1L);
    set(CURLOPT_CONNECTTIMEOUT_MS, connectTimeout);
    set(CURLOPT_BUFFERSIZE, receiveBuffer);
    set(CURLOPT_NOPROXY, ""); // Proxies come from the settings, not from the environment.
}

CurlHandle::~CurlHandle() = default;

bool CurlHandle::prepare(HttpServer const& server, HttpRequestHeader const& header, QByteArray const& body)
{
    _body = body;
    setProxy(server, CURLAUTH_BASIC | CURLAUTH_DIGEST);
    setUser(server, CURLAUTH_BASIC | CURLAUTH_DIGEST);
    if (!setAddress(server, header))
        return false;
    setMethod(header);
    setLines(header);
    bool const isOld = header.majorVersion() == 1 && header.minorVersion() == 0;
    set(CURLOPT_HTTP_VERSION, static_cast<long>(isOld ? CURL_HTTP_VERSION_1_0 : CURL_HTTP_VERSION_1_1));
    return true;
}

bool CurlHandle::setAddress(HttpServer const& server, HttpRequestHeader const& header)
{
    // Set part by part, so that no host name can pass for more than a host name.
    QByteArray const host = hostName(server.host);
    QByteArray const port = QByteArray::number(server.effectivePort());
    if (curl_url_set(_url.get(), CURLUPART_SCHEME, server.isSecure() ? "https" : "http", 0) != CURLUE_OK ||
        curl_url_set(_url.get(), CURLUPART_HOST, host.constData(), 0) != CURLUE_OK ||
        curl_url_set(_url.get(), CURLUPART_PORT, port.constData(), 0) != CURLUE_OK ||
        curl_url_set(_url.get(), CURLUPART_PATH, "/", 0) != CURLUE_OK)
        return false;
    set(CURLOPT_CURLU, _url.get());

    QByteArray target = wirePath(header.path());
    QNetworkProxy::ProxyType const proxy = server.effectiveProxy().type();
    bool const isForwarded = proxy == QNetworkProxy::HttpProxy || proxy == QNetworkProxy::HttpCachingProxy;
    if (isForwarded && !server.isSecure() && target.startsWith('/'))
        target.prepend("http://" + server.authority().toUtf8());
    set(CURLOPT_REQUEST_TARGET, target.constData());
    return true;
}

void CurlHandle::setUser(HttpServer const& server, unsigned long methods)
{
    if (server.user.isEmpty())
        return;
    set(CURLOPT_USERNAME, server.user.toUtf8().constData());
    set(CURLOPT_PASSWORD, server.password.toUtf8().constData());
    set(CURLOPT_HTTPAUTH, methods);
}

void CurlHandle::setProxy(HttpServer const& server, unsigned long methods)
{
    QNetworkProxy const proxy = server.effectiveProxy();
    bool const isSocks = proxy.type() == QNetworkProxy::Socks5Proxy;
    if (proxy.hostName().isEmpty() ||
        (!isSocks && proxy.type() != QNetworkProxy::HttpProxy && proxy.type() != QNetworkProxy::HttpCachingProxy)) {
        set(CURLOPT_PROXY, "");
        return;
    }
    set(CURLOPT_PROXY, hostName(proxy.hostName()).constData());
    set(CURLOPT_PROXYPORT, static_cast<long>(proxy.port()));
    set(CURLOPT_PROXYTYPE, static_cast<long>(isSocks ? CURLPROXY_SOCKS5_HOSTNAME : CURLPROXY_HTTP));
    if (proxy.user().isEmpty())
        return;
    set(CURLOPT_PROXYUSERNAME, proxy.user().toUtf8().constData());
    set(CURLOPT_PROXYPASSWORD, proxy.password().toUtf8().constData());
    set(CURLOPT_PROXYAUTH, methods);
}

void CurlHandle::setMethod(HttpRequestHeader const& header)
{
    QByteArray const method = wireText(header.method()).replace(' ', "");
    if (method == "HEAD") {
        set(CURLOPT_NOBODY, 1L);
        return;
    }
    if (_body.isEmpty() && method != "POST" && method != "PUT") {
        set(CURLOPT_HTTPGET, 1L);
    } else {
        set(CURLOPT_POST, 1L);
        set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(_body.size()));
        set(CURLOPT_POSTFIELDS, _body.constData());
    }
    set(CURLOPT_CUSTOMREQUEST, method.constData());
}

void CurlHandle::setLines(HttpRequestHeader const& header)
{
    _lines.reset();
    // A bare name keeps curl from writing that line by itself. For Host it is needed even when the line is given:
    // curl would move it to the front.
    if (header.hasKey("Host"))
        append("Host:");
    for (char const* const name : {"Accept", "Expect", "Content-Type", "Proxy-Connection"})
        if (!header.hasKey(name))
            append(name + QByteArray(":"));
    for (auto const& [key, value] : header.values()) {
        QByteArray const name = wireText(key).replace(':', "").replace(';', "").trimmed();
        // A wrong length would make the peer take what follows for another request, or wait for ever.
        bool const isLength = name.compare("Content-Length", Qt::CaseInsensitive) == 0;
        QByteArray const text = isLength ? QByteArray::number(_body.size()) : wireText(value).trimmed();
        if (!name.isEmpty())
            append(text.isEmpty() ? QByteArray(name + ";") : QByteArray(name + ": " + text));
    }
    set(CURLOPT_HTTPHEADER, _lines.get());
}

void CurlHandle::append(QByteArray const& line)
{
    if (curl_slist* const lines = curl_slist_append(_lines.get(), line.constData())) {
        (void)_lines.release();
        _lines.reset(lines);
    }
}
