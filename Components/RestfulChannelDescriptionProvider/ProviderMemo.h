#pragma once

#include "AbstractMemo.h"

#include <functional>
#include <utility>

class RestfulChannelDescriptionProvider;

/// Has a provider do something on the thread of its cache's queue.
class ProviderMemo : public AbstractMemo
{
public:
    using Call = std::function<void(RestfulChannelDescriptionProvider&)>;

    /// The provider is only handed on, to the call.
    ProviderMemo(RestfulChannelDescriptionProvider* provider, Call call)
        : AbstractMemo(provider), _provider(provider), _call(std::move(call))
    {
    }

    void handle() override { _call(*_provider); }

private:
    RestfulChannelDescriptionProvider* const _provider;
    Call const _call;
};
