#pragma once

#include <QObject>

#include <memory>

class QSocketNotifier;

/// Turns SIGTERM, SIGINT and SIGHUP into a signal of Qt's, so that the program ends in good order. One at a time.
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignals(QObject* parent = nullptr);
    /// Gives the signals their former meaning back.
    ~TerminationSignals() override;

signals:
    /// The process was asked to end.
    void received();

private:
    void onReadable();

    std::unique_ptr<QSocketNotifier> _notifier;
};
