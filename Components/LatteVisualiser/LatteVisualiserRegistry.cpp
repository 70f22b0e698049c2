#include "LatteVisualiserRegistry.h"

#include "LatteVisualiser.h"
#include "LatteVisualiserFactory.h"

void LatteVisualiserRegistry::registerLatteVisualiserFactory(UriScheme const& scheme, LatteVisualiserFactory* factory)
{
    _factories.insert(scheme, factory);
}

LatteVisualiser* LatteVisualiserRegistry::createLatteVisualiser(LatteClient const* client)
{
    LatteVisualiserFactory* const factory = client ? _factories.value(client->uri().scheme()) : nullptr;
    LatteVisualiser* const visualiser = factory ? factory->createLatteVisualiser(client) : nullptr;
    if (visualiser) {
        _makers.insert(visualiser, factory);
        connect(visualiser, &QObject::destroyed, this, [this](QObject* gone) { _makers.remove(gone); });
    }
    return visualiser;
}

void LatteVisualiserRegistry::disposeLatteVisualiser(LatteVisualiser* visualiser)
{
    if (LatteVisualiserFactory* const maker = _makers.take(visualiser))
        maker->disposeLatteVisualiser(visualiser);
}
