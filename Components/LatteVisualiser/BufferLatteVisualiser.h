#pragma once

#include "LatteVisualiser.h"
#include "LatteVisualiserFactory.h"

/// Shows how full the buffer of any client is, as a bar.
class BufferLatteVisualiser : public LatteVisualiser
{
    Q_OBJECT

public:
    using LatteVisualiser::LatteVisualiser;

    QImage visualise(QSize size) override;
};

/// Makes bars.
class BufferLatteVisualiserFactory : public LatteVisualiserFactory
{
public:
    LatteVisualiser* createLatteVisualiser(LatteClient const* client) override;
    void disposeLatteVisualiser(LatteVisualiser* visualiser) override;
};
