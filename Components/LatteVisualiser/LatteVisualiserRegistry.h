#pragma once

#include "UriScheme.h"

#include <QHash>
#include <QObject>

class LatteClient;
class LatteVisualiser;
class LatteVisualiserFactory;

/// The registry that says which widget shows the clients of a scheme. Lives on the GUI thread.
class LatteVisualiserRegistry : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Inserts or replaces; the factory must outlive this object.
    void registerLatteVisualiserFactory(UriScheme const& scheme, LatteVisualiserFactory* factory);

    /// Null for a null client or an unknown scheme; to be given back.
    LatteVisualiser* createLatteVisualiser(LatteClient const* client);
    /// Takes a widget back, also after its client has gone. Ignores null.
    void disposeLatteVisualiser(LatteVisualiser* visualiser);

private:
    QHash<UriScheme, LatteVisualiserFactory*> _factories;
    QHash<QObject const*, LatteVisualiserFactory*> _makers; ///< Of the widgets that live.
};
