#pragma once

class Logger;

/// Gives access to the process's one Logger.
class LoggerManager
{
public:
    /// The one Logger, made on the first call, with no parent, and never deleted: static objects may log to the end.
    static Logger* logger();
};
