#pragma once

#include "SimpleAsfObject.h"

/// The Header Extension object, which holds objects as the header does.
///
/// Body: reserved GUID, reserved (u16), data size (u32), data. The data is read into objects and written from them.
class HeaderExtensionObject : public ClonedAsfObject<HeaderExtensionObject>
{
public:
    /// Header extensions inside each other; one further inside is carried through unread.
    static constexpr int maximumDepth = 8;

    /// The depth says how many header extensions this one is inside of.
    HeaderExtensionObject(QDataStream& stream, long long size, int depth = 0);
    HeaderExtensionObject(HeaderExtensionObject const& other);

    QUuid reservedGuid;
    quint16 reserved = 0;
    AsfObjectList objects;
    QByteArray unreadData; ///< The end of the data, where it holds no further whole object.

protected:
    void writeFields(QDataStream& stream) const override;
};
