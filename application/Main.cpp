#include "Application.h"
#include "Window.h"

#include <memory>

namespace
{
constexpr int answerTime = 5000; // ms for a first instance to take the message.
}

int main(int argc, char** argv)
{
    auto application = std::make_unique<Application>("Ombravision", argc, argv);
    if (application->isRunning() && application->sendMessage(application->messageForFirstInstance(), answerTime))
        return 0;
    if (!application->initialize())
        return 1;
    application->setActivationWindow(application->window());
    return QApplication::exec();
}
