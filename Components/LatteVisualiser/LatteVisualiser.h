#pragma once

#include "LatteClient.h"

#include <QImage>
#include <QPointer>
#include <QTimer>
#include <QWidget>

/// Shows the buffer state of a client. What is shown is painted by the class for the client's scheme.
class LatteVisualiser : public QWidget
{
    Q_OBJECT

public:
    static constexpr int refreshInterval = 250; ///< ms

    explicit LatteVisualiser(LatteClient const* client, QWidget* parent = nullptr);

    /// Null once the client is gone.
    virtual LatteClient const* latteClient() const;

    virtual bool isStarted() const;
    virtual void start();
    virtual void stop();

    /// The image for a running client, of the given size.
    virtual QImage visualise(QSize size) = 0;
    /// The image for a stopped one: a plain frame.
    virtual QImage visualiseStopped(QSize size);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPointer<LatteClient const> _client;
    QTimer _refreshTimer; ///< Active while started.
};
