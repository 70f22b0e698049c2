#pragma once

#include "HttpHeader.h"

#include <QMetaType>

/// The header of an HTTP response, as a copyable value. The reply "ICY 200 OK" of old radio servers counts as
/// HTTP/1.0.
class HttpResponseHeader : public HttpHeader
{
public:
    /// Not valid until setStatusLine().
    HttpResponseHeader() = default;
    explicit HttpResponseHeader(int code, QString const& text = {}, int majorVersion = 1, int minorVersion = 1);

    /// Reads a whole header, as a server sent it; isValid() tells whether it was one.
    explicit HttpResponseHeader(QString const& text);

    void setStatusLine(int code, QString const& text = {}, int majorVersion = 1, int minorVersion = 1);

    int statusCode() const { return _statusCode; }
    QString reasonPhrase() const { return _reasonPhrase; }
    int majorVersion() const override { return _majorVersion; }
    int minorVersion() const override { return _minorVersion; }

    bool operator==(HttpResponseHeader const&) const = default;

protected:
    bool parseFirstLine(QStringView line) override;
    QString firstLine() const override;

private:
    int _statusCode = 0;
    QString _reasonPhrase;
    int _majorVersion = 1;
    int _minorVersion = 1;
};

Q_DECLARE_METATYPE(HttpResponseHeader)
