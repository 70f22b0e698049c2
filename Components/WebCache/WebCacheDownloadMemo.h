#pragma once

#include "AbstractMemo.h"
#include "Uri.h"

class WebCache;

/// Fetches an address when its time has come.
class WebCacheDownloadMemo : public AbstractMemo
{
public:
    /// `number` tells which of an address' memos counts.
    WebCacheDownloadMemo(WebCache& cache, Uri const& uri, int number);

    void handle() override;

private:
    WebCache& _cache;
    Uri const _uri;
    int const _number;
};
