#pragma once

#include <QString>

#include <array>

/// What the server told of a file when it was opened. Fields without a name have no known meaning.
struct TcpMmsFileInfo {
    quint32 fileId = 0; ///< The server's number for the file in this session.
    quint32 result = 0;
    quint32 number = 0;
    std::array<quint32, 3> numbersAfterFileId{};
    double duration = 0.0; ///< Seconds.
    quint32 blocks = 0;
    std::array<quint8, 16> bytesAfterBlocks{};
    std::array<quint32, 4> sizes{};
    std::array<quint8, 36> bytesAtEnd{};
    QString path; ///< The one that was asked for; not told by the server.

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(result, number, fileId, numbersAfterFileId, duration, blocks, bytesAfterBlocks, sizes, bytesAtEnd);
    }
};
