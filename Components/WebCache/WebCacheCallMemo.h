#pragma once

#include "AbstractMemo.h"

#include <functional>
#include <utility>

class WebCache;

/// Has a WebCache do something on its queue's thread.
class WebCacheCallMemo : public AbstractMemo
{
public:
    /// The cache is only handed on, to the call.
    WebCacheCallMemo(WebCache* cache, std::function<void(WebCache&)> call)
        : AbstractMemo(cache), _cache(cache), _call(std::move(call))
    {
    }

    void handle() override { _call(*_cache); }

private:
    WebCache* const _cache;
    std::function<void(WebCache&)> const _call;
};
