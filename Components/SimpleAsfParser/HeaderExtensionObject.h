#pragma once

#include "SimpleAsfObject.h"

/// The Header Extension object, which holds objects as the header does. Its data is read into objects and written
/// from them.
class HeaderExtensionObject : public ParsedAsfObject<HeaderExtensionObject>
{
public:
    /// Header extensions inside each other; one further inside is carried through unread.
    static constexpr int maximumDepth = 8;

    HeaderExtensionObject() = default;
    HeaderExtensionObject(HeaderExtensionObject const& other);

    int depth = 0; ///< How many header extensions this one is inside of; not on the wire.
    QUuid reservedGuid;
    quint16 reserved = 0;
    AsfObjectList objects;
    QByteArray unreadData; ///< The end of the data, where it holds no further whole object.

    template<typename Archive>
    void fields(Archive& archive)
    {
        QByteArray data = objectBytes();
        auto dataSize = static_cast<quint32>(data.size());
        archive(reservedGuid, reserved, dataSize);
        archive.arrayUpTo(data, dataSize);
        if constexpr (Archive::isReader)
            readObjects(data);
    }

private:
    QByteArray objectBytes() const;
    void readObjects(QByteArray const& data);
};
