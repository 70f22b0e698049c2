#pragma once

#include "HttpHeader.h"

#include <QMetaType>

/// The header of an HTTP request, as a copyable value.
class HttpRequestHeader : public HttpHeader
{
public:
    /// Not valid until setRequest().
    HttpRequestHeader() = default;
    HttpRequestHeader(QString const& method, QString const& path, int majorVersion = 1, int minorVersion = 1);

    /// Reads a whole header; isValid() tells whether it was one.
    explicit HttpRequestHeader(QString const& text);

    void setRequest(QString const& method, QString const& path, int majorVersion = 1, int minorVersion = 1);

    QString method() const { return _method; }
    QString path() const { return _path; }
    int majorVersion() const override { return _majorVersion; }
    int minorVersion() const override { return _minorVersion; }

    bool operator==(HttpRequestHeader const&) const = default;

protected:
    bool parseFirstLine(QStringView line) override;
    QString firstLine() const override;

private:
    QString _method;
    QString _path;
    int _majorVersion = 1;
    int _minorVersion = 1;
};

Q_DECLARE_METATYPE(HttpRequestHeader)
