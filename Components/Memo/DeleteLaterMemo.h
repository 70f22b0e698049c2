#pragma once

#include "AbstractMemo.h"

#include <QObject>

/// Deletes the owner of memos from its own thread's event loop, after those that are before it in the queue: its
/// release() of the queue has nothing left to wait for then.
class DeleteLaterMemo : public AbstractMemo
{
public:
    /// The object is its own memos' owner.
    explicit DeleteLaterMemo(QObject* object) : AbstractMemo(object), _object(object) {}

    void handle() override { _object->deleteLater(); }

private:
    QObject* const _object;
};
