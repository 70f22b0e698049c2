#pragma once

#include <QString>

class Logger;

/// Gives this installation an identifier that stays the same from start to start.
class MachineIdGenerator
{
public:
    /// A UUID without braces, from the user's settings file "MachineId.ini"; made and stored there when the file
    /// holds none. One that cannot be stored is logged, and the next call makes another.
    static QString machineId();

private:
    static Logger* log;
};
