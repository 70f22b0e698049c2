#pragma once

#include <QByteArrayView>

#include <array>

/// Follows the tag-length-value structure (ITU-T X.690) of one value as its bytes arrive, and tells when it goes
/// beyond a limit. It stands before a decoder that has no limits of its own. Each byte is looked at once, contents
/// not at all, and nothing is allocated.
class BerStructureGuard
{
public:
    /// How deep values may be nested. A message has six levels; strings in pieces add a few.
    static constexpr int maximumNesting = 32;

    /// Follows the next bytes of the value. Answers how many of them belong to it, up to the one that completes or
    /// breaks it.
    qsizetype follow(QByteArrayView bytes);

    /// The whole value has been seen.
    bool isComplete() const { return _state == Complete; }

    /// The value is nested too deep, is or declares to be too large, is larger than the one around it, or is no BER.
    bool isBroken() const { return _state == Broken; }

    /// Goes back to before the first byte of a value.
    void reset();

private:
    enum State { Tag, TagContinued, Length, LengthContinued, Contents, Complete, Broken };

    /// The offset at which a value of indefinite length ends, until it is known.
    static constexpr qint64 unknownEnd = -1;

    void followByte(unsigned char byte);
    void followTag(unsigned char byte);
    void followLength(unsigned char byte);
    void enterValue(qint64 length);
    void leaveValues();
    void closeIndefinite();
    qint64 innermostEnd() const;

    State _state = Tag;
    qint64 _offset = 0;      ///< Bytes followed so far.
    qint64 _length = 0;      ///< The length field as far as it was read.
    int _lengthBytes = 0;    ///< What is missing of it.
    int _tagBytes = 0;       ///< Of a tag in the long form.
    qint64 _contentsEnd = 0; ///< Where the contents of a primitive value end.
    bool _isConstructed = false;
    bool _isEndMark = false; ///< The tag 0, which with the length 0 closes a value of indefinite length.
    int _nesting = 0;
    std::array<qint64, maximumNesting> _ends{}; ///< Where the open values end.
};
