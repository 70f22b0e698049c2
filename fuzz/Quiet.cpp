#include "Logger.h"
#include "LoggerManager.h"

/// A fuzzer's log would be nothing but refusals.
extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    LoggerManager::logger()->setLevel(Logger::Fatal);
    return 0;
}
