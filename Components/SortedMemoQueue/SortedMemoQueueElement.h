#pragma once

#include <QtGlobal>

class Memo;

/// A memo that waits in a SortedMemoQueue, and its time.
class SortedMemoQueueElement
{
public:
    SortedMemoQueueElement(Memo* memo, qint64 msFire) : _memo(memo), _msFire(msFire) {}

    Memo* memo() const { return _memo; }

    /// When the memo is due, in milliseconds since the epoch on the queue's TickCounter.
    qint64 msFire() const { return _msFire; }

    bool operator<(SortedMemoQueueElement const& other) const { return _msFire < other._msFire; }

private:
    Memo* _memo;
    qint64 _msFire;
};

Q_DECLARE_TYPEINFO(SortedMemoQueueElement, Q_PRIMITIVE_TYPE);
