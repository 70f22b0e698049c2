#include "BiscottiMessageCutter.h"

#include <utility>

namespace
{

/// Whether the byte is the tag of one of the two envelopes, so that garbage is told from its first byte.
bool isEnvelope(char tag)
{
    return tag == '\xA0' || tag == '\xA1';
}

} // namespace

void BiscottiMessageCutter::add(QByteArray const& bytes)
{
    if (!_isOutOfStep)
        _buffer.append(bytes);
}

std::optional<QByteArray> BiscottiMessageCutter::next()
{
    if (bytesHeld() == 0) {
        dropUsed();
        return std::nullopt;
    }
    if (isEnvelope(_buffer.at(_begin)))
        _followed += _guard.follow(QByteArrayView(_buffer).sliced(_begin + _followed));
    else
        loseStep();
    if (_guard.isBroken())
        loseStep();
    if (!_guard.isComplete()) {
        dropUsed();
        return std::nullopt;
    }
    QByteArray message = _buffer.sliced(_begin, _followed);
    _begin += std::exchange(_followed, 0);
    _guard.reset();
    return message;
}

/// Messages are handed out from the front; the bytes move up once for all of those that came together.
void BiscottiMessageCutter::dropUsed()
{
    _buffer.remove(0, std::exchange(_begin, 0));
}

void BiscottiMessageCutter::loseStep()
{
    reset();
    _isOutOfStep = true;
}
