#include "ServiceAddresses.h"

#include "Deployment.h"

#include <QUrl>

ServiceAddresses::ServiceAddresses(Uri const& base, QString const& version)
    : _base(base.toString()), _version(version)
{
    while (_base.endsWith('/'))
        _base.chop(1);
}

bool ServiceAddresses::isUsable(Uri const& base)
{
    QUrl const url(base.toString(), QUrl::StrictMode);
    bool const isWeb = url.scheme() == "http" || url.scheme() == "https";
    return url.isValid() && isWeb && !url.host().isEmpty() && !url.hasQuery() && !url.hasFragment();
}

Uri ServiceAddresses::ofVersion(char const* name) const
{
    return Uri(_base + "/client/desktop/" + QString(_version).replace('.', Deployment::versionSeparator) + name);
}

Uri ServiceAddresses::channelsDocument() const
{
    return ofVersion("/channels.xml");
}

Uri ServiceAddresses::entitlements() const
{
    return ofVersion("/entitlements.xml");
}
