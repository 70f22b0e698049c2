#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QUuid>

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

    /// Takes the body of an object of `size` bytes out of a stream that stands behind the object's GUID and size.
    SimpleAsfObject(QUuid const& objectGuid, QDataStream& stream, long long size);

    virtual ~SimpleAsfObject() = default;
    virtual std::unique_ptr<SimpleAsfObject> clone() const;

    /// Writes the object, GUID and size included.
    virtual void toStream(QDataStream& stream);

    QUuid guid;
    quint64 objectSize = 0; ///< GUID and size included.

    /// What no class has read: the whole body, or what follows the fields of a class.
    QByteArray body;

protected:
    /// For a class that reads its fields itself.
    SimpleAsfObject(QUuid const& objectGuid, long long size);
    SimpleAsfObject(SimpleAsfObject const&) = default;
    SimpleAsfObject& operator=(SimpleAsfObject const&) = delete;
};

using AsfObjectList = std::vector<std::unique_ptr<SimpleAsfObject>>;

/// An object whose fields are read. It is written from them, so that it comes out with a correct size when records
/// were removed; what is not understood comes out as it came in.
class ParsedAsfObject : public SimpleAsfObject
{
public:
    void toStream(QDataStream& stream) override;

protected:
    using SimpleAsfObject::SimpleAsfObject;

    /// Writes the fields, all that goes between the size and what no class has read.
    virtual void writeFields(QDataStream& stream) const = 0;
};

/// Gives a class its clone().
template<typename Object, typename Base = ParsedAsfObject>
class ClonedAsfObject : public Base
{
public:
    std::unique_ptr<SimpleAsfObject> clone() const override
    {
        return std::make_unique<Object>(static_cast<Object const&>(*this));
    }

protected:
    using Base::Base;
};
