#include "Background.h"

using namespace std::chrono_literals;

DetachedThreads& Background::threads()
{
    static DetachedThreads& all = DetachedThreads::make(1s); // What is being written to a disk gets there.
    return all;
}
