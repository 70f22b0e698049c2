#pragma once

#include "MmsNumbersMessage.h"
#include "TcpMmsFileInfo.h"

// What the server says about a file; MacToViewerSessionReports.h holds what it says about the session. A result is an
// HRESULT: negative for a failure. Fields without a name have no known meaning; they are read and kept.

/// 0x40006, answers OpenFile.
class MmsLinkMacToViewerReportOpenFile
    : public TcpMmsMessageOf<MmsLinkMacToViewerReportOpenFile, TcpMmsMessage::LinkMacToViewerReportOpenFile>
{
public:
    int result() const { return static_cast<int>(_file.result); }

    /// All of the report, but for the path, which it does not hold.
    TcpMmsFileInfo const& file() const { return _file; }

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(_file);
    }

private:
    TcpMmsFileInfo _file;
};

/// 0x40011, answers ReadBlock: result u32; two u32. The header follows in data packets.
using MmsLinkMacToViewerReportReadBlock = MmsNumbersMessage<TcpMmsMessage::LinkMacToViewerReportReadBlock, 3>;

/// 0x40021, answers StreamSwitch: result u32.
using MmsLinkMacToViewerReportStreamSwitch = MmsNumbersMessage<TcpMmsMessage::LinkMacToViewerReportStreamSwitch, 1>;

/// 0x40005, answers StartPlaying: result u32; three u32.
using MmsLinkMacToViewerReportStartedPlaying =
    MmsNumbersMessage<TcpMmsMessage::LinkMacToViewerReportStartedPlaying, 4>;

/// 0x4000A: three u32.
using MmsLinkMacToViewerReportStartStriding = MmsNumbersMessage<TcpMmsMessage::LinkMacToViewerReportStartStriding, 3>;

/// 0x4001E, the file has been played to its end: two u32.
using MmsLinkMacToViewerReportEndOfStream = MmsNumbersMessage<TcpMmsMessage::LinkMacToViewerReportEndOfStream, 2>;

/// 0x40020: six u32.
using MmsLinkMacToViewerReportStreamChange = MmsNumbersMessage<TcpMmsMessage::LinkMacToViewerReportStreamChange, 6>;
