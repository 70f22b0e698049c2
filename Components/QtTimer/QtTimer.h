#pragma once

#include "Timer.h"

#include <QTimer>

/// The Timer over a QTimer, precise to the millisecond.
class QtTimer : public Timer
{
    Q_OBJECT

public:
    explicit QtTimer(QObject* parent = nullptr);

    void setSingleShot(bool singleShot) override;

    /// The identifier while the timer runs, otherwise -1.
    int timerId() const override;

public slots:
    void start(int ms) override;
    void stop() override;
    int interval() const override;
    bool isActive() const override;

    /// Passes the wrapped timer's signal on.
    void onTimeout();

private:
    QTimer _timer;
};
