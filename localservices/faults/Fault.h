#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// Something that is to go wrong when clients ask for a stream. A value.
///
/// As text: WHAT [on STEP] [times COUNT], where WHAT is
///     STATUS [LOCATION]      an HTTP status, 204 or 300 to 599; a redirection needs the location
///     RESULT                 the result of a report of MMS over TCP, as 0xC00D0030
///     silent                 the request is taken and never answered
///     reset                  the answer to a stream selection tells the client to begin anew
///     cut BYTES              the connection ends after so many bytes of the answer
///     cut header             ... in the middle of the stream's header
///     cut packet             ... in the middle of the stream's tenth data packet
struct Fault {
    enum class Kind { Status, Result, Silent, Reset, CutBytes, CutHeader, CutPacket };

    /// What a client asks for. Any stands for all; the others name requests of MMS over HTTP (Describe to Stop) and
    /// of MMS over TCP (Connect to Start).
    enum class Step { Any, Describe, Play, Select, Log, Stop, Connect, Measure, Funnel, Open, Read, Switch, Start };

    static constexpr int maximumTimes = 1'000'000;

    Kind kind = Kind::Status;
    int status = 0;
    QString location;
    quint32 result = 0;
    qint64 bytes = 0;
    Step step = Step::Any;
    int times = -1; ///< How often it still happens; for ever when negative.

    /// Nothing, and a text that tells why, when the words make no fault.
    static std::optional<Fault> parse(QStringList words, QString& error);

    QString toText() const;

    /// The step of that name, in lower case.
    static std::optional<Step> stepOf(QString const& name);
    static QString nameOf(Step step);

    /// The text that goes with an HTTP status.
    static QByteArray reasonOf(int status);
};
