#pragma once

#include "LittleEndianWriter.h"
#include "TcpMmsHeader.h"

#include <QString>

/// A command to the server or a report from it.
///
/// On the wire, little-endian: the TcpMmsHeader (32 bytes); at 32 the chunk length (u32), which counts in units of 8
/// bytes from itself to the end; at 36 the type (u32); at 40 the body, which each class lists; zero bytes up to
/// a multiple of 8, counted from 32. No message, either way, is longer than `maximumBytes`.
///
/// A class of its own for each type, named after it, says what the body holds. Those from the server may be shorter
/// or longer than we know: fields that are missing are 0 or empty, what follows the known ones is not looked at.
class TcpMmsMessage
{
public:
    enum MmsMessageType : quint32 {
        NoMessage = 0,
        LinkViewerToMacConnect = 0x30001,
        LinkViewerToMacConnectFunnel = 0x30002,
        LinkViewerToMacOpenFile = 0x30005,
        LinkViewerToMacStartPlaying = 0x30007,
        LinkViewerToMacCloseFile = 0x3000D,
        LinkViewerToMacReadBlock = 0x30015,
        LinkViewerToMacFunnelInfo = 0x30018,
        LinkViewerToMacPong = 0x3001B,
        LinkViewerToMacCancelReadBlock = 0x30025,
        LinkViewerToMacStreamSwitch = 0x30033,
        LinkMacToViewerReportConnectedEx = 0x40001,
        LinkMacToViewerReportConnectedFunnel = 0x40002,
        LinkMacToViewerReportDisconnectedFunnel = 0x40003,
        LinkMacToViewerReportStartedPlaying = 0x40005,
        LinkMacToViewerReportOpenFile = 0x40006,
        LinkMacToViewerReportStartStriding = 0x4000A,
        LinkMacToViewerReportReadBlock = 0x40011,
        LinkMacToViewerReportFunnelInfo = 0x40015,
        LinkMacToViewerPing = 0x4001B,
        LinkMacToViewerReportEndOfStream = 0x4001E,
        LinkMacToViewerReportStreamChange = 0x40020,
        LinkMacToViewerReportStreamSwitch = 0x40021
    };

    static constexpr int bytesBeforeBody = TcpMmsHeader::bytes + 8;
    static constexpr int typeOffset = TcpMmsHeader::bytes + 4;
    static constexpr int maximumBytes = 128 * 1024; ///< The longest real ones, with texts, take some hundred.

    virtual ~TcpMmsMessage() = default;
    TcpMmsMessage(TcpMmsMessage const&) = delete;
    TcpMmsMessage& operator=(TcpMmsMessage const&) = delete;

    quint32 type() const { return _type; }
    TcpMmsHeader& header() { return _header; }

    /// Writes the whole message, padded. The lengths are worked out here.
    void getObjectData(LittleEndianWriter& out);

    /// Throws std::out_of_range with the first field that has not the value it must have.
    virtual void verify() const;

protected:
    explicit TcpMmsMessage(MmsMessageType type) : _type(type) {}

    /// What precedes the body, read or written.
    template<typename Archive>
    void headFields(Archive& archive)
    {
        archive(_header, _chunkLength, _type);
    }

    virtual void writeBody(LittleEndianWriter& out) = 0;

    /// Throws std::out_of_range, "<message> <field> != 0x<expected>", when the value is another.
    static void expect(char const* message, char const* field, quint32 value, quint32 expected);

private:
    TcpMmsHeader _header;
    quint32 _chunkLength = 0;
    quint32 _type;
};

/// What the class of one type of message has besides its body, which its fields() list.
template<typename Message, TcpMmsMessage::MmsMessageType id>
class TcpMmsMessageOf : public TcpMmsMessage
{
public:
    static constexpr MmsMessageType messageType = id;

    /// A message out of bytes that end where it does. Owned by the caller.
    static TcpMmsMessage* fromStream(LittleEndianReader& in)
    {
        auto* const message = new Message;
        message->headFields(in);
        message->fields(in);
        return message;
    }

protected:
    TcpMmsMessageOf() : TcpMmsMessage(id) {}
    void writeBody(LittleEndianWriter& out) override { static_cast<Message*>(this)->fields(out); }
};

/// A text in UTF-16 with a 0 unit at the end; it is read up to the end of the message where there is none.
struct MmsText {
    QString text;

    template<typename Archive>
    void fields(Archive& archive)
    {
        QString units = text + QChar(0);
        archive.arrayUpTo(units, TcpMmsMessage::maximumBytes);
        text = units.section(QChar(0), 0, 0);
    }
};
