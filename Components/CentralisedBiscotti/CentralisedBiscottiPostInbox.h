#pragma once

#include "BiscottiPost.h"
#include "BiscottiSignatureId.h"

#include <deque>
#include <mutex>
#include <optional>

/// Posts on their way from whoever posts to the queue of operations. They are not in the memos that queue them: those
/// end with the client's right to post, and a post made just before the end is still to be sent. Any thread; the
/// mutex guards the posts.
class CentralisedBiscottiPostInbox
{
public:
    struct Item {
        BiscottiPost post;
        BiscottiSignatureId signatureId;
    };

    void add(BiscottiPost const& post, BiscottiSignatureId const& signatureId)
    {
        std::lock_guard const lock(_mutex);
        _items.push_back({post, signatureId});
    }

    /// The post that came first among those that are left.
    std::optional<Item> take()
    {
        std::lock_guard const lock(_mutex);
        if (_items.empty())
            return std::nullopt;
        Item const item = _items.front();
        _items.pop_front();
        return item;
    }

private:
    std::mutex _mutex;
    std::deque<Item> _items;
};
