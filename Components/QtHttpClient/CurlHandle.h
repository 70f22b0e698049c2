#pragma once

#include <QByteArray>

#include <array>
#include <curl/curl.h>
#include <memory>

class HttpRequestHeader;
struct HttpServer;

/// One curl easy handle with all that it borrows: a request that goes over the wire exactly as given, its header
/// lines in their order and number, and none of curl's own.
class CurlHandle
{
public:
    static constexpr long connectTimeout = 30000; ///< ms to find the host and connect.
    static constexpr long receiveBuffer = 65536;  ///< bytes

    /// `owner` comes back as CURLINFO_PRIVATE.
    explicit CurlHandle(void* owner);
    ~CurlHandle();
    CurlHandle(CurlHandle const&) = delete;
    CurlHandle& operator=(CurlHandle const&) = delete;

    CURL* get() const { return _easy.get(); }

    template<typename T>
    void set(CURLoption option, T value)
    {
        curl_easy_setopt(_easy.get(), option, value);
    }

    /// Sets up a request. False when the server's name cannot be one.
    bool prepare(HttpServer const& server, HttpRequestHeader const& header, QByteArray const& body);

    /// Sets the credentials for the server and, by `methods` of CURLAUTH_..., how they may be sent.
    void setUser(HttpServer const& server, unsigned long methods);
    void setProxy(HttpServer const& server, unsigned long methods);

    /// curl's words on the last failure.
    char const* errorText() const { return _errorText.data(); }

private:
    bool setAddress(HttpServer const& server, HttpRequestHeader const& header);
    void setMethod(HttpRequestHeader const& header);
    void setLines(HttpRequestHeader const& header);
    void append(QByteArray const& line);

    template<auto function>
    struct Call {
        template<typename T>
        void operator()(T* object) const
        {
            function(object);
        }
    };
    using List = std::unique_ptr<curl_slist, Call<&curl_slist_free_all>>;

    std::unique_ptr<CURL, Call<&curl_easy_cleanup>> _easy;
    std::unique_ptr<CURLU, Call<&curl_url_cleanup>> _url;
    List _lines;
    List _aliases;
    QByteArray _body;
    std::array<char, CURL_ERROR_SIZE> _errorText = {};
};
