#pragma once

#include "AbstractMemo.h"

#include <QObject>

/// Deletes the owner of memos from its own thread's event loop, after those that are before it in the queue: its
/// release() of the queue has nothing left to wait for then.
///
/// Any event loop of that thread may be the one, a dialog's too: asked for from another thread, the deletion has no
/// level. So an owner must bear it during its own signals.
class DeleteLaterMemo : public AbstractMemo
{
public:
    /// The object is its own memos' owner.
    explicit DeleteLaterMemo(QObject* object) : AbstractMemo(object), _object(object) {}

    void handle() override { _object->deleteLater(); }

private:
    QObject* const _object;
};
