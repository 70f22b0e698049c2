#pragma once

#include <QObject>

/// A timer as an interface, so that tests move time by hand. Lives on the thread that made it.
class Timer : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual void setSingleShot(bool singleShot) = 0;
    virtual int timerId() const = 0;

public slots:
    /// Starts, or starts anew, with an interval in milliseconds.
    virtual void start(int ms) = 0;
    virtual void stop() = 0;
    virtual int interval() const = 0;
    virtual bool isActive() const = 0;

signals:
    void timeout(Timer* timer);
};
