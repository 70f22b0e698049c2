#include "NameLookup.h"

#include <condition_variable>
#include <dlfcn.h>
#include <mutex>
#include <netdb.h>
#include <string_view>

namespace
{
std::mutex mutex; // Guards the two below.
bool isHeldUp = false;
int waitingLookups = 0;
std::condition_variable changed;
} // namespace

NameLookup::NameLookup()
{
    std::lock_guard const lock(mutex);
    isHeldUp = true;
}

NameLookup::~NameLookup()
{
    std::unique_lock lock(mutex);
    isHeldUp = false;
    changed.notify_all();
    changed.wait(lock, [] { return waitingLookups == 0; });
}

int NameLookup::waiting() const
{
    std::lock_guard const lock(mutex);
    return waitingLookups;
}

extern "C" int getaddrinfo(char const* node, char const* service, addrinfo const* hints, addrinfo** result)
{
    std::string_view const name = node ? node : "";
    if (name == "slow.invalid") {
        std::unique_lock lock(mutex);
        ++waitingLookups;
        changed.wait(lock, [] { return !isHeldUp; });
        --waitingLookups;
        changed.notify_all();
    }
    if (name.ends_with(".invalid"))
        return EAI_NONAME;
    static auto const system = reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
    return system(node, service, hints, result);
}
