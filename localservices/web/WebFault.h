#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// Something that is to go wrong with an answer of the web service. A value.
///
/// As text: PLACE WHAT [times COUNT], where PLACE is "*", the beginning of a path, or a method of the SOAP interface,
/// and WHAT is
///     STATUS             an HTTP status, 300 to 599, in place of the answer
///     silent             no answer
///     slow MS            the answer comes so many milliseconds later
///     cut BYTES          the connection ends after so many bytes of the body
///     xml                the body is no well-formed XML any more
///     length             more is announced than is sent
///     fault [TEXT]       a fault of SOAP in place of the answer
struct WebFault {
    enum class Kind { Status, Silent, Slow, Cut, Xml, Length, SoapFault };

    static constexpr int maximumTimes = 1'000'000;
    static constexpr int maximumSlow = 600'000; ///< Milliseconds.
    static constexpr int maximumCut = 100'000'000;

    QString place;
    Kind kind = Kind::Status;
    int number = 0; ///< Status, milliseconds or bytes.
    QString text;
    int times = -1; ///< How often it still happens; for ever when negative.

    /// Nothing, and a text that tells why, when the words make no fault.
    static std::optional<WebFault> parse(QStringList words, QString& error);
    QString toText() const;

    bool isAt(QString const& path, QString const& method) const;
};

/// What is to go wrong, in order.
class WebFaultPlan
{
public:
    static constexpr int maximumFaults = 1000; ///< With more, the oldest goes.

    void add(WebFault const& fault);
    void clear() { _faults.clear(); }
    QStringList toText() const;

    /// The first fault that awaits a request for this path, and this method of SOAP if it is one; it is counted as
    /// happened.
    std::optional<WebFault> take(QString const& path, QString const& method);

private:
    QList<WebFault> _faults;
};
