#pragma once

class LatteClient;
class LatteVisualiser;

/// Makes the visualisers of one scheme's clients.
class LatteVisualiserFactory
{
public:
    virtual ~LatteVisualiserFactory() = default;

    /// A widget without a parent, to be given back.
    virtual LatteVisualiser* createLatteVisualiser(LatteClient const* client) = 0;
    virtual void disposeLatteVisualiser(LatteVisualiser* visualiser) = 0;
};
