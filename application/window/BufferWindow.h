#pragma once

#include <QList>
#include <QWidget>

class AppData;
class LatteVisualiser;
class QVBoxLayout;

/// A small window that shows how full the buffers of the open channels are, a visualiser for each stream that has
/// a client. It follows what is opened and closed while it is visible. Main thread only.
class BufferWindow : public QWidget
{
    Q_OBJECT

public:
    BufferWindow(AppData& appData, QWidget* parent);
    ~BufferWindow() override;

signals:
    void visibilityChanged(bool visible);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void rebuild();
    void clear();

    AppData& _appData;
    QVBoxLayout* const _layout;
    QList<LatteVisualiser*> _visualisers; ///< Given back to the registry.
};
