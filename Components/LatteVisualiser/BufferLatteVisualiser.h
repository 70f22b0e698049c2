#pragma once

#include "LatteVisualiser.h"
#include "LatteVisualiserFactory.h"

#include <QList>

/// Shows how full the buffer of any client is, and has been for the last minute: a line from left to right, the
/// present at the right edge, with the buffer's size for height.
class BufferLatteVisualiser : public LatteVisualiser
{
    Q_OBJECT

public:
    static constexpr int historySeconds = 60;
    static constexpr int sampleInterval = 1000; ///< ms

    explicit BufferLatteVisualiser(LatteClient const* client, QWidget* parent = nullptr);

    /// Begins a new history.
    void start() override;
    void stop() override;

    QImage visualise(QSize size) override;
    QSize sizeHint() const override;

public slots:
    /// Adds the present level to the history. Happens by itself while started, and ends when the client is gone.
    void sample();

private:
    void drawHistory(QPainter& painter, QRectF const& area) const;

    QTimer _sampleTimer;
    QList<double> _levels; ///< From empty, 0, to full, 1; the oldest first.
};

/// Makes such graphs.
class BufferLatteVisualiserFactory : public LatteVisualiserFactory
{
public:
    LatteVisualiser* createLatteVisualiser(LatteClient const* client) override;
    void disposeLatteVisualiser(LatteVisualiser* visualiser) override;
};
