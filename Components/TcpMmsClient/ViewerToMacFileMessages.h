#pragma once

#include "MmsNumbersMessage.h"
#include "StreamSwitchEntry.h"

#include <QList>
#include <QString>

// What the viewer sends about a file; ViewerToMacSessionMessages.h holds what it sends about the session.

/// 0x30005. Its numbers are the open counter, 0, and the position and the length of a blob, which we have not.
class MmsLinkViewerToMacOpenFile
    : public TcpMmsMessageOf<MmsLinkViewerToMacOpenFile, TcpMmsMessage::LinkViewerToMacOpenFile>
{
public:
    /// The counter tells one opening of a session from another; the path is encoded as in a URL.
    explicit MmsLinkViewerToMacOpenFile(quint32 openCounter = 0, QString const& path = {})
        : _numbers{openCounter, 0, 0, 0}, _path{path}
    {
    }

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(_numbers, _path);
    }

private:
    std::array<quint32, 4> _numbers{};
    MmsText _path;
};

/// 0x30015, asks for the header.
class MmsLinkViewerToMacReadBlock
    : public TcpMmsMessageOf<MmsLinkViewerToMacReadBlock, TcpMmsMessage::LinkViewerToMacReadBlock>
{
public:
    explicit MmsLinkViewerToMacReadBlock(quint32 fileId = 0) : _fileId(fileId) {}
    void verify() const override;

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(_fileId, _fileBlockId, _offset, _length, _flags, _unused, _tEarliest, _tDeadline, _kind,
                _playSequence);
    }

private:
    quint32 _fileId;
    quint32 _fileBlockId = 0;
    quint32 _offset = 0;
    quint32 _length = 0x8000;
    quint32 _flags = 0xFFFFFFFF;
    quint32 _unused = 0;
    double _tEarliest = 0.0;
    double _tDeadline = 3600.0;
    quint32 _kind = 2;
    quint32 _playSequence = 0;
};

/// 0x30025, takes that back: two u32. We know it and never send it.
using MmsLinkViewerToMacCancelReadBlock = MmsNumbersMessage<TcpMmsMessage::LinkViewerToMacCancelReadBlock, 2>;

/// 0x30033, selects streams. With no entry the server chooses.
class MmsLinkViewerToMacStreamSwitch
    : public TcpMmsMessageOf<MmsLinkViewerToMacStreamSwitch, TcpMmsMessage::LinkViewerToMacStreamSwitch>
{
public:
    explicit MmsLinkViewerToMacStreamSwitch(QList<StreamSwitchEntry> const& entries = {}) : _entries(entries) {}

    template<typename Archive>
    void fields(Archive& archive)
    {
        auto count = static_cast<quint32>(_entries.size());
        archive(count);
        archive.records(count, _entries);
    }

private:
    QList<StreamSwitchEntry> _entries;
};

/// 0x30007.
class MmsLinkViewerToMacStartPlaying
    : public TcpMmsMessageOf<MmsLinkViewerToMacStartPlaying, TcpMmsMessage::LinkViewerToMacStartPlaying>
{
public:
    explicit MmsLinkViewerToMacStartPlaying(quint32 fileId = 0) : _fileId(fileId) {}

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(_fileId, _unused, _position, _numbers);
    }

private:
    quint32 _fileId;
    quint32 _unused = 0;
    double _position = 0.0;
    std::array<quint32, 4> _numbers{0xFFFFFFFF, 0xFFFFFFFF, 0, 4};
};

/// 0x3000D: u32 0; file id u32.
using MmsLinkViewerToMacCloseFile = MmsNumbersMessage<TcpMmsMessage::LinkViewerToMacCloseFile, 2>;
