#include "Application.h"
#include "ArgumentList.h"
#include "CommandLineHelp.h"
#include "EffectTrialProgram.h"
#include "Window.h"

#include <cstdio>
#include <memory>

namespace
{
constexpr int answerTime = 5000; // ms for a first instance to take the message.
}

int main(int argc, char** argv)
{
    if (EffectTrialProgram::isWanted(argc, argv))
        return EffectTrialProgram::run(argc, argv);
    // Before anything else is touched: who asks may have no display.
    if (QString const answer = CommandLineHelp::answer(ArgumentList(argc, argv)); !answer.isEmpty()) {
        std::fputs(qPrintable(answer), stdout);
        return std::fflush(stdout) == 0 ? 0 : 1;
    }
    auto application = std::make_unique<Application>("Ombravision", argc, argv);
    if (application->isRunning() && application->sendMessage(application->messageForFirstInstance(), answerTime))
        return 0;
    if (!application->initialize())
        return 1;
    application->setActivationWindow(application->window());
    return QApplication::exec();
}
