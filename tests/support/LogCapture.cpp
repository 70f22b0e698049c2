#include "LogCapture.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <algorithm>

namespace
{
LogCapture* theCapture = nullptr;
Logger::Level previousLevel;
Logger::Method previousMethod;
} // namespace

LogCapture::LogCapture()
{
    Logger* const logger = LoggerManager::logger();
    previousLevel = logger->level();
    previousMethod = logger->method();
    theCapture = this;
    qInstallMessageHandler(&LogCapture::handleMessage);
    logger->setMethod(Logger::QtMessages);
    logger->setLevel(Logger::Debug);
}

LogCapture::~LogCapture()
{
    LoggerManager::logger()->setLevel(previousLevel);
    LoggerManager::logger()->setMethod(previousMethod);
    qInstallMessageHandler(nullptr);
    theCapture = nullptr;
}

QStringList LogCapture::lines() const
{
    QMutexLocker locker(&_mutex);
    return _lines;
}

bool LogCapture::contains(QString const& text) const
{
    return count(text) > 0;
}

int LogCapture::count(QString const& text) const
{
    QMutexLocker locker(&_mutex);
    return static_cast<int>(
        std::count_if(_lines.cbegin(), _lines.cend(), [&](QString const& line) { return line.contains(text); }));
}

void LogCapture::handleMessage(QtMsgType, QMessageLogContext const&, QString const& text)
{
    QMutexLocker locker(&theCapture->_mutex);
    theCapture->_lines.append(text);
}
