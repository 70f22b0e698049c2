#pragma once

#include "HttpRequest.h"

/// Cuts requests out of the bytes that a client sends. What it holds is bounded by its limits, and each byte is
/// looked at once.
class HttpRequestReader
{
public:
    static constexpr qsizetype maximumLine = 8 << 10;    ///< Bytes.
    static constexpr qsizetype maximumHeader = 32 << 10; ///< Bytes of all lines together.
    static constexpr int maximumLines = 100;
    static constexpr qint64 maximumBody = 64 << 10;

    enum class Result { Incomplete, Complete, Bad };

    /// Takes bytes and reads up to the end of one request. When it is complete, call next() with no more bytes for
    /// another that came with it.
    Result next(QByteArray const& bytes);

    /// The complete request.
    HttpRequest const& request() const { return _request; }

    /// What to answer to a bad one: an HTTP status. Nothing can be read any more.
    int status() const { return _status; }

    /// Whether part of a request has come.
    bool isInRequest() const { return _headerSize > 0 || !_buffer.isEmpty(); }

private:
    enum class Part { RequestLine, HeaderLines, Body, Complete, Bad };

    void reset();
    void readLine(QByteArray const& line);
    void readRequestLine(QByteArray const& line);
    void readHeaderLine(QByteArray const& line);
    void endHeader();
    void fail(int status);

    QByteArray _buffer;
    qsizetype _searched = 0; ///< Bytes of the buffer without a line end.
    qsizetype _headerSize = 0;
    qint64 _bodySize = 0;
    Part _part = Part::RequestLine;
    int _status = 0;
    HttpRequest _request;
};
