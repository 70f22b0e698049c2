#include "CommandLineHelp.h"

#include "AppSettings.h"
#include "ArgumentList.h"

#include <algorithm>

namespace
{

char const* const usage = R"(Usage: ombravision [SWITCH ...] [--] [FILE or ADDRESS ...]

Plays files and addresses (mms, http, https, rtsp, anything that FFmpeg opens), side by side. One instance runs for
each user: a second start hands over what it was asked to play, and ends.

  -debug[=CLASS,...]  log at debug level, of these classes only where some are named; keep the terminal
  -demo               play streams by FFmpeg's own access
  -idkfa              god mode
  -startup            started by the system, not by a person
  -fullscreen         start in full screen
  -help, -version     say this, or the version, and end
  --                  all that follows is a file or an address

The log is in ~/.Ombravision/Ombravision.log, the settings are in ~/.config/Ombravision/Ombravision.ini.
)";

bool isAnyGiven(ArgumentList const& arguments, std::initializer_list<char const*> names)
{
    return std::ranges::any_of(names, [&](char const* name) { return arguments.isGiven(name); });
}

} // namespace

QString CommandLineHelp::answer(ArgumentList const& arguments)
{
    if (isAnyGiven(arguments, {"-help", "--help", "-h"}))
        return QString::fromLatin1(usage);
    if (isAnyGiven(arguments, {"-version", "--version"}))
        return QStringLiteral("Ombravision %1\n").arg(QLatin1String(AppSettings::programVersion));
    return {};
}
