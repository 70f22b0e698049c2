#pragma once

#include "AbstractMemo.h"

#include <atomic>
#include <functional>
#include <utility>

/// A memo whose work is a function, and which counts how many of its kind exist.
class TestMemo : public AbstractMemo
{
public:
    TestMemo(void* owner, std::function<void()> work) : AbstractMemo(owner), _work(std::move(work)) { ++_living; }
    ~TestMemo() override { --_living; }
    TestMemo(TestMemo const&) = delete;
    TestMemo& operator=(TestMemo const&) = delete;

    void handle() override { _work(); }

    /// The memos that nobody has deleted, in the whole process.
    static int living() { return _living; }

private:
    std::function<void()> const _work;
    inline static std::atomic<int> _living{0};
};
