#include "SimpleAsfObject.h"

std::unique_ptr<SimpleAsfObject> SimpleAsfObject::clone() const
{
    return std::unique_ptr<SimpleAsfObject>(new SimpleAsfObject(*this));
}

void SimpleAsfObject::toStream(LittleEndianWriter& out)
{
    out(guid, objectSize);
    out.rest(body);
}

void SimpleAsfObject::removeStream(int) {}
