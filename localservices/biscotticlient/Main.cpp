#include "BiscottiTool.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "TerminationSignals.h"

#include <QCoreApplication>
#include <QFile>

#include <csignal>
#include <cstdio>

namespace
{

int fail(int status, QString const& text)
{
    std::fprintf(stderr, "ombravision-biscotti: %s\n", qUtf8Printable(text));
    return status;
}

int tell(QString const& text)
{
    std::fputs(qUtf8Printable(text), stdout);
    return BiscottiTool::Done;
}

/// No more than can be sent in one post, and a byte to tell that it was too much.
QByteArray readInput()
{
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return {};
    QByteArray body;
    // A pipe gives a piece at a time.
    while (body.size() <= centralisedBiscottiMaximumMessageBytes) {
        QByteArray const piece = input.read(centralisedBiscottiMaximumMessageBytes + 1 - body.size());
        if (piece.isEmpty())
            break;
        body += piece;
    }
    return body;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication const application(argc, argv);
    QString error;
    auto options = BiscottiToolOptions::parse(QCoreApplication::arguments().mid(1), error);
    if (!options)
        return fail(BiscottiTool::WrongOptions, error);
    if (options->showHelp)
        return tell(BiscottiToolOptions::helpText());
    if (options->showVersion)
        return tell(QStringLiteral("ombravision-biscotti " OMBRAVISION_VERSION "\n"));
    if (options->bodyFromInput)
        options->body = readInput();
    if (options->body.size() > centralisedBiscottiMaximumMessageBytes)
        return fail(BiscottiTool::WrongOptions, QStringLiteral("the body is larger than a message may be, %1 bytes")
                                                    .arg(centralisedBiscottiMaximumMessageBytes));

    std::signal(SIGPIPE, SIG_IGN);
    LoggerManager::logger()->setMethod(Logger::StandardError);
    LoggerManager::logger()->setLevel(options->debug ? Logger::Debug : Logger::Fatal);
    BiscottiTool tool(*options);
    QObject::connect(&tool, &BiscottiTool::finished, &tool, &QCoreApplication::exit, Qt::QueuedConnection);
    TerminationSignals const termination([&tool] { tool.interrupt(); });
    tool.start();
    return QCoreApplication::exec();
}
