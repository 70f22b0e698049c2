#include "LocalServices.h"
#include "LocalServicesOptions.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MonotonicTickCounter.h"
#include "QtTimerFactory.h"
#include "TerminationSignals.h"

#include <QCoreApplication>
#include <QSaveFile>

#include <cstdio>
#include <sys/resource.h>

namespace
{
constexpr int wrongOptions = 1;
constexpr int cannotServe = 2;

int fail(int status, QString const& text)
{
    std::fprintf(stderr, "ombravision-localservices: %s\n", qUtf8Printable(text));
    return status;
}

void tell(QString const& text)
{
    std::fputs(qUtf8Printable(text), stdout);
    std::fflush(stdout);
}

/// Each client takes a file descriptor; the usual limit is for small programs.
void allowManyClients()
{
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) == 0) {
        limit.rlim_cur = limit.rlim_max;
        setrlimit(RLIMIT_NOFILE, &limit);
    }
}

void configureLog(LocalServicesOptions const& options)
{
    Logger* const logger = LoggerManager::logger();
    logger->setMethod(Logger::StandardError);
    logger->setLevel(options.debug ? Logger::Debug : Logger::Info);
    for (QString const& name : options.debugClasses)
        logger->showClass(name);
}

/// With the token of the control port in it, the file is for its owner alone.
bool writePorts(QString const& path, QString const& lines)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.setPermissions(QSaveFile::ReadOwner | QSaveFile::WriteOwner) &&
           file.write(lines.toUtf8()) >= 0 && file.commit();
}
} // namespace

int main(int argc, char** argv)
{
    QCoreApplication const application(argc, argv);
    QString error;
    auto const options = LocalServicesOptions::parse(QCoreApplication::arguments().mid(1), error);
    if (!options)
        return fail(wrongOptions, error);
    if (options->showHelp)
        return tell(LocalServicesOptions::helpText()), 0;
    if (options->showVersion)
        return tell(QStringLiteral("ombravision-localservices " OMBRAVISION_VERSION "\n")), 0;
    if (options->streams.isEmpty() && !options->biscottiPort && !options->webPort && !options->webTlsPort)
        return fail(wrongOptions, QStringLiteral("there is nothing to serve; give a --stream /NAME=FILE, a "
                                                 "--biscotti-port or a --web-port, see --help"));

    configureLog(*options);
    allowManyClients();
    MonotonicTickCounter tickCounter;
    QtTimerFactory timerFactory;
    LocalServices services(tickCounter, timerFactory);
    if (!services.start(*options, error))
        return fail(cannotServe, error);
    tell(services.portLines());
    if (!options->portsFile.isEmpty() && !writePorts(options->portsFile, services.portLines()))
        return fail(cannotServe, QStringLiteral("cannot write %1").arg(options->portsFile));
    TerminationSignals const termination([] { QCoreApplication::quit(); });
    return QCoreApplication::exec();
}
