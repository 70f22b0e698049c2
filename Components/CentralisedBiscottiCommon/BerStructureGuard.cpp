#include "BerStructureGuard.h"

#include "CentralisedBiscottiMessageCoding.h"

#include <algorithm>

namespace
{

constexpr unsigned char constructedBit = 0x20;
constexpr unsigned char longTag = 0x1F;
constexpr unsigned char longLengthBit = 0x80;
constexpr unsigned char indefiniteLength = 0x80;
constexpr int maximumTagBytes = 4;    // No schema has tags of more.
constexpr int maximumLengthBytes = 8; // Leading zeros are allowed, so that more than four may be meant well.

} // namespace

qsizetype BerStructureGuard::follow(QByteArrayView bytes)
{
    qsizetype position = 0;
    while (position < bytes.size() && _state != Complete && _state != Broken) {
        if (_state == Contents) {
            qsizetype const skipped = std::min<qint64>(_contentsEnd - _offset, bytes.size() - position);
            position += skipped;
            _offset += skipped;
            if (_offset == _contentsEnd)
                leaveValues();
            continue;
        }
        ++_offset;
        followByte(static_cast<unsigned char>(bytes[position]));
        ++position;
    }
    return position;
}

void BerStructureGuard::reset()
{
    *this = {};
}

void BerStructureGuard::followByte(unsigned char byte)
{
    // No field may reach past the end of the value that it is in.
    if (_offset > centralisedBiscottiMaximumMessageBytes ||
        (innermostEnd() != unknownEnd && _offset > innermostEnd()))
        _state = Broken;
    else if (_state == Tag || _state == TagContinued)
        followTag(byte);
    else
        followLength(byte);
}

void BerStructureGuard::followTag(unsigned char byte)
{
    if (_state == Tag) {
        _isConstructed = byte & constructedBit;
        _isEndMark = byte == 0;
        _tagBytes = 0;
        _state = (byte & longTag) == longTag ? TagContinued : Length;
        return;
    }
    if (++_tagBytes > maximumTagBytes)
        _state = Broken;
    else if (!(byte & longLengthBit))
        _state = Length;
}

void BerStructureGuard::followLength(unsigned char byte)
{
    if (_state == LengthContinued) {
        _length = _length << 8 | byte;
        if (_length > centralisedBiscottiMaximumMessageBytes)
            _state = Broken;
        else if (--_lengthBytes == 0)
            enterValue(_length);
    } else if (_isEndMark && byte != 0) {
        _state = Broken;
    } else if (byte == indefiniteLength) {
        enterValue(unknownEnd);
    } else if (byte & longLengthBit) {
        _length = 0;
        _lengthBytes = byte & ~longLengthBit;
        _state = _lengthBytes > maximumLengthBytes ? Broken : LengthContinued;
    } else {
        enterValue(byte);
    }
}

void BerStructureGuard::enterValue(qint64 length)
{
    if (_isEndMark) {
        closeIndefinite();
        return;
    }
    qint64 const end = length == unknownEnd ? unknownEnd : _offset + length;
    bool const exceedsOuter = end != unknownEnd && innermostEnd() != unknownEnd && end > innermostEnd();
    if (exceedsOuter || end > centralisedBiscottiMaximumMessageBytes) {
        _state = Broken;
    } else if (!_isConstructed) {
        _contentsEnd = end;
        _state = length == unknownEnd ? Broken : Contents;
        if (length == 0)
            leaveValues();
    } else if (_nesting == maximumNesting) {
        _state = Broken;
    } else {
        _ends[_nesting++] = end;
        leaveValues();
    }
}

/// Leaves all open values that end here.
void BerStructureGuard::leaveValues()
{
    while (_nesting > 0 && _ends[_nesting - 1] == _offset)
        --_nesting;
    _state = _nesting == 0 ? Complete : Tag;
}

void BerStructureGuard::closeIndefinite()
{
    if (_nesting == 0 || _ends[_nesting - 1] != unknownEnd) {
        _state = Broken;
        return;
    }
    --_nesting;
    leaveValues();
}

/// The nearest end that is known; values of indefinite length reach at most to that of one around them.
qint64 BerStructureGuard::innermostEnd() const
{
    for (int i = _nesting - 1; i >= 0; --i)
        if (_ends[i] != unknownEnd)
            return _ends[i];
    return unknownEnd;
}
