#include "Latte.h"

#include "LatteClient.h"
#include "LatteClientFactory.h"
#include "Logger.h"
#include "LoggerManager.h"

Logger* Latte::log = LoggerManager::logger();

void Latte::registerLatteClientFactory(UriScheme const& scheme, LatteClientFactory* factory)
{
    _factories.insert(scheme, factory);
}

bool Latte::hasClientFactory(UriScheme const& scheme) const
{
    return _factories.contains(scheme);
}

LatteClient* Latte::open(Uri const& uri)
{
    LatteClientFactory* const factory = _factories.value(uri.scheme());
    return factory ? factory->createLatteClient(uri) : nullptr;
}

void Latte::close(LatteClient* client)
{
    if (!client)
        return;
    UriScheme const scheme = client->uri().scheme();
    LatteClientFactory* const factory = _factories.value(scheme);
    if (!factory) {
        LOG_ERROR("No factory takes back a client of the scheme %s", qPrintable(scheme.toString()));
        return;
    }
    factory->disposeLatteClient(client);
}
