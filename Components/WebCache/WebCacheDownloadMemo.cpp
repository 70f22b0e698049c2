#include "WebCacheDownloadMemo.h"

#include "WebCache.h"

WebCacheDownloadMemo::WebCacheDownloadMemo(WebCache& cache, Uri const& uri, int number)
    : AbstractMemo(&cache), _cache(cache), _uri(uri), _number(number)
{
}

void WebCacheDownloadMemo::handle()
{
    _cache.refresh(_uri, _number);
}
