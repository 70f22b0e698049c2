#pragma once

#include <QByteArrayView>

#include <array>

/// The object and type identifiers of the ASF specification that the servers know, as they stand in a file: the first
/// three groups little-endian, the rest in order.
namespace AsfGuids
{
using Guid = std::array<char, 16>;

constexpr Guid make(quint32 a, quint16 b, quint16 c, quint64 d)
{
    Guid guid{};
    for (unsigned i = 0; i < 4; ++i)
        guid[i] = static_cast<char>(a >> 8 * i);
    for (unsigned i = 0; i < 2; ++i) {
        guid[4 + i] = static_cast<char>(b >> 8 * i);
        guid[6 + i] = static_cast<char>(c >> 8 * i);
    }
    for (unsigned i = 0; i < 8; ++i)
        guid[8 + i] = static_cast<char>(d >> 8 * (7 - i));
    return guid;
}

inline constexpr Guid header = make(0x75B22630, 0x668E, 0x11CF, 0xA6D900AA0062CE6C);
inline constexpr Guid data = make(0x75B22636, 0x668E, 0x11CF, 0xA6D900AA0062CE6C);
inline constexpr Guid contentDescription = make(0x75B22633, 0x668E, 0x11CF, 0xA6D900AA0062CE6C);
inline constexpr Guid fileProperties = make(0x8CABDCA1, 0xA947, 0x11CF, 0x8EE400C00C205365);
inline constexpr Guid streamProperties = make(0xB7DC0791, 0xA9B7, 0x11CF, 0x8EE600C00C205365);
inline constexpr Guid headerExtension = make(0x5FBF03B5, 0xA92E, 0x11CF, 0x8EE300C00C205365);
inline constexpr Guid extendedStreamProperties = make(0x14E6A5CB, 0xC672, 0x4332, 0x8399A96952065B5A);
inline constexpr Guid streamBitrates = make(0x7BF875CE, 0x468D, 0x11D1, 0x8D82006097C9A2B2);
inline constexpr Guid bitrateMutualExclusion = make(0xD6E229DC, 0x35DA, 0x11D1, 0x903400A0C90349BE);
inline constexpr Guid advancedMutualExclusion = make(0xA08649CF, 0x4775, 0x4670, 0x8A166E35357566CD);
inline constexpr Guid mutexBitrate = make(0xD6E22A01, 0x35DA, 0x11D1, 0x903400A0C90349BE);
inline constexpr Guid audioMedia = make(0xF8699E40, 0x5B4D, 0x11CF, 0xA8FD00805F5C442B);
inline constexpr Guid videoMedia = make(0xBC19EFC0, 0x5B4D, 0x11CF, 0xA8FD00805F5C442B);

inline QByteArrayView view(Guid const& guid)
{
    return {guid.data(), static_cast<qsizetype>(guid.size())};
}
} // namespace AsfGuids
