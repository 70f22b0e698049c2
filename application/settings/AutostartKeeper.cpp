#include "AutostartKeeper.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "RunAtStartup.h"

#include <QCoreApplication>

Logger* AutostartKeeper::log = LoggerManager::logger();

namespace
{

QStringList arguments()
{
    return {"-startup"};
}

} // namespace

AutostartKeeper::AutostartKeeper(QString const& name, QObject* parent) : QObject(parent), _name(name)
{
    _thread.setMaxThreadCount(1);
}

AutostartKeeper::~AutostartKeeper()
{
    _thread.waitForDone();
}

void AutostartKeeper::look()
{
    _thread.start([this, wish = _wishes, path = QCoreApplication::applicationFilePath()] {
        tellFound(wish, RunAtStartup::runAtStartup(_name, path, arguments()));
    });
}

void AutostartKeeper::set(bool run)
{
    ++_wishes;
    _thread.start([this, run, wish = _wishes, path = QCoreApplication::applicationFilePath()] {
        QString problem;
        if (RunAtStartup::setRunAtStartup(_name, path, arguments(), run, &problem))
            return;
        LOG_ERROR("%s", qUtf8Printable(problem));
        QMetaObject::invokeMethod(
            this, [this, problem] { emit failed(problem); }, Qt::QueuedConnection);
        tellFound(wish, RunAtStartup::runAtStartup(_name, path, arguments()));
    });
}

/// On the thread.
void AutostartKeeper::tellFound(int wish, bool runs)
{
    auto const tell = [this, wish, runs] {
        if (wish == _wishes)
            emit found(runs);
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}
