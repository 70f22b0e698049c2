#pragma once

#include <QString>

class Logger;
class RandomGenerator;
class TickCounter;

/// Makes the id under which this run of the program is known to the messaging server.
class BiscottiClientId
{
public:
    /// Another id with every call, which does not lead back to the machine: the MD5 of machine, time and chance, in
    /// Base64. Without a machine id, which is logged, time and chance have to do.
    static QString create(QString const& machineId, RandomGenerator& randomGenerator, TickCounter& tickCounter);

private:
    static Logger* log;
};
