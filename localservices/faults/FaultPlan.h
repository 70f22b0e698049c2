#pragma once

#include "Fault.h"

#include <QMap>

#include <initializer_list>

/// What is to go wrong on which stream. "*" stands for all streams.
class FaultPlan
{
public:
    static constexpr int maximumFaults = 1000; ///< For each stream; the oldest goes.

    void add(QString const& path, Fault const& fault);
    void clear(QString const& path);
    void clear() { _faults.clear(); }

    /// The first fault of one of these kinds that awaits this step of a client on the stream; it is counted as
    /// happened. An empty path finds only the faults of all streams.
    std::optional<Fault> take(QString const& path, Fault::Step step, std::initializer_list<Fault::Kind> kinds);

    /// One line for each fault.
    QStringList toText() const;

private:
    QMap<QString, QList<Fault>> _faults;
};
