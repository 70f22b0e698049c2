#pragma once

#include "Memo.h"

/// A memo that remembers its owner; all concrete memos derive from it.
class AbstractMemo : public Memo
{
public:
    explicit AbstractMemo(void* owner) : _owner(owner) {}

    void* owner() override { return _owner; }

private:
    void* const _owner;
};
