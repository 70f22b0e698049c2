#include "VirtualDisplay.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

VirtualDisplay::VirtualDisplay()
{
    if (std::getenv("DISPLAY"))
        return;
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        std::exit(1);
    std::string const writeEnd = std::to_string(ends[1]);
    _server = fork();
    if (_server == 0) {
        prctl(PR_SET_PDEATHSIG, SIGTERM); // A test that crashes leaves no server behind.
        int const quiet = open("/dev/null", O_WRONLY);
        dup2(quiet, STDERR_FILENO);
        execlp("Xvfb", "Xvfb", "-displayfd", writeEnd.c_str(), "-screen", "0", "1280x1024x24", "-nolisten", "tcp",
               nullptr);
        _exit(127);
    }
    close(ends[1]);
    std::string number;
    for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';)
        number += c;
    close(ends[0]);
    if (number.empty()) {
        std::fputs("There is no Xvfb to test on\n", stderr);
        std::exit(1);
    }
    setenv("DISPLAY", (":" + number).c_str(), 1);
}

VirtualDisplay::~VirtualDisplay()
{
    if (_server <= 0)
        return;
    kill(_server, SIGTERM);
    waitpid(_server, nullptr, 0);
}
