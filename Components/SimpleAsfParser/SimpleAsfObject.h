#pragma once

#include "LittleEndianWriter.h"

#include <memory>
#include <vector>

/// One object of an ASF header, as ASF 1.20 publishes them, and any object that has no class of its own.
///
/// On the wire, little-endian: GUID (16 bytes), size of the whole object (u64), body (size less 24).
class SimpleAsfObject
{
public:
    /// Bytes of GUID and size.
    static constexpr int headerBytes = 24;

    SimpleAsfObject() = default;
    virtual ~SimpleAsfObject() = default;
    virtual std::unique_ptr<SimpleAsfObject> clone() const;

    /// Writes the object, GUID and size included.
    virtual void toStream(LittleEndianWriter& out);

    /// Forgets what the object says of one stream among others, and lowers its counts.
    virtual void removeStream(int streamNumber);

    QUuid guid;
    quint64 objectSize = 0; ///< GUID and size included.

    /// What no class has read: the whole body, or what follows the fields of a class.
    QByteArray body;

protected:
    SimpleAsfObject(SimpleAsfObject const&) = default;
    SimpleAsfObject& operator=(SimpleAsfObject const&) = default;
};

using AsfObjectList = std::vector<std::unique_ptr<SimpleAsfObject>>;

/// An object whose fields are read, as its fields() lists them. It is written from them, so that it comes out with a
/// correct size when records were removed; what is not understood comes out as it came in.
template<typename Object, typename Base = SimpleAsfObject>
class ParsedAsfObject : public Base
{
public:
    std::unique_ptr<SimpleAsfObject> clone() const override
    {
        return std::make_unique<Object>(static_cast<Object const&>(*this));
    }

    void toStream(LittleEndianWriter& out) override
    {
        LittleEndianWriter fields;
        static_cast<Object*>(this)->fields(fields);
        fields.rest(this->body);
        this->objectSize = static_cast<quint64>(fields.bytes().size() + this->headerBytes);
        out(this->guid, this->objectSize);
        out.rest(fields.bytes());
    }
};
