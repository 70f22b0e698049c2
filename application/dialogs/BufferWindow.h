#pragma once

#include "OmbravisionDialog.h"

#include <QList>

class LatteVisualiser;
class QVBoxLayout;

/// A dialog that shows how full the buffers of the open channels are, a visualiser for each stream that has
/// a client. It follows what is opened and closed while it is visible. Main thread only.
class BufferWindow : public OmbravisionDialog
{
    Q_OBJECT

public:
    BufferWindow(AppData& appData, QWidget* parent);
    ~BufferWindow() override;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void rebuild();
    void addNothing();
    void clear();

    QVBoxLayout* _layout;
    QList<LatteVisualiser*> _visualisers; ///< Given back to the registry.
};
