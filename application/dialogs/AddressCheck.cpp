#include "AddressCheck.h"

#include "FileName.h"
#include "OwnChannels.h"

#include <QDir>
#include <QUrl>

namespace
{

constexpr char const* playableSchemes[] = {"http", "https", "mms",   "mmsh", "mmst",
                                           "rtsp", "rtmp",  "rtmps", "rtp",  "udp"};

bool isPlayable(QString const& scheme)
{
    for (char const* const known : playableSchemes)
        if (scheme == QLatin1String(known))
            return true;
    return false;
}

} // namespace

AddressCheck AddressCheck::of(QString const& text)
{
    constexpr int longestAddress = 4096;
    QString const address = text.trimmed();
    if (address.isEmpty())
        return {};
    if (address.size() > longestAddress)
        return {Kind::Nothing, tr("This is too long for an address.")};
    if (FileName::isAddress(address) || QDir::isAbsolutePath(address))
        return {Kind::File, tr("A file on this computer.")};
    if (!OwnChannels::isAddress(address))
        return {Kind::Nothing, tr("An address begins with a scheme, such as "
                                  "http:// or rtsp://.")};
    QString const scheme = address.left(address.indexOf(':')).toLower();
    if (!isPlayable(scheme))
        return {Kind::Nothing, tr("Nothing is known about addresses that begin with %1://.").arg(scheme)};
    QUrl const url(address);
    if (!url.isValid())
        return {Kind::Nothing, tr("There is something in this address that does not belong "
                                  "there.")};
    if (url.host().isEmpty())
        return {Kind::Nothing, tr("The name of the computer is missing after %1://.").arg(scheme)};
    return {Kind::Stream, tr("A stream of %1.").arg(url.host())};
}
