#pragma once

#include "SimpleAsfObject.h"

/// Makes objects from their bytes, each of the class that its GUID names.
namespace AsfObjectReader
{
/// Reads the next object, GUID and size included. Null when no whole object is left, or when its size is less than
/// its own 24 bytes of GUID and size; the reader then stands anywhere. The depth says how many header extensions the
/// reader is inside of.
std::unique_ptr<SimpleAsfObject> readObject(LittleEndianReader& in, int depth);

/// The same from behind GUID and size. An object too short for the fields of its class becomes a plain one.
std::unique_ptr<SimpleAsfObject> readBody(QUuid const& guid, LittleEndianReader& in, quint64 size, int depth);
} // namespace AsfObjectReader
