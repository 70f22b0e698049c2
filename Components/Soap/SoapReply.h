#pragma once

#include "SoapValue.h"

#include <QByteArray>
#include <QString>

/// What a call has brought, as a copyable value: the value that the method returns, or in words why there is none.
class SoapReply
{
public:
    static constexpr int maximumDepth = 32; ///< of elements
    static constexpr int maximumElements = 100000;

    SoapReply() = default;

    /// Reads the envelope of an answer to the method (SOAP 1.1). It goes by local names, and takes any name for the
    /// value and for the elements of a list, since kits differ. Survives any bytes.
    static SoapReply read(QByteArray const& document, QString const& method);

    /// A call that failed.
    static SoapReply failure(QString const& text);

    bool isFault() const { return _isFault; }
    QString faultString() const { return _faultString; }

    /// Whether this was an envelope at all, with a value or a fault in it.
    bool isEnvelope() const { return _isEnvelope; }

    /// Not valid for a fault, and for a method that returned nothing.
    SoapValue returnValue() const { return _returnValue; }

private:
    bool _isFault = false;
    bool _isEnvelope = false;
    QString _faultString;
    SoapValue _returnValue;

    friend class SoapReplyReader;
};
