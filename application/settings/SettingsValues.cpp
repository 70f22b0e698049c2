#include "SettingsValues.h"

#include "Deployment.h"
#include "LatteDataSource.h"

namespace
{

QList<ChatColour> defaultChatColours()
{
    struct Entry {
        char const* name;
        char const* native;
        char const* skin;
    };
    constexpr Entry palette[] = {
        {"Room Name", "#472", "#472"},         {"Your Alias", "#a21", "#a21"},
        {"Other Alias", "#808080", "#bebebe"}, {"Ignored Alias", "#0084c1", "#0084c1"},
        {"Admin Alias", "#472", "#472"},       {"Bot Alias", "#8a6", "#8a6"},
        {"Timestamp", "#808080", "#808080"},   {"System", "#808080", "#808080"},
        {"Action", "#808080", "#808080"},      {"Link", "#404040", "#aaaaaa"},
    };
    QList<ChatColour> colours;
    for (Entry const& entry : palette)
        colours.append({entry.name, QColor(entry.native), QColor(entry.skin), static_cast<int>(colours.size())});
    return colours;
}

} // namespace

SettingsValues::SettingsValues()
    : latteStartDelay(LatteDataSource::openDelay), biscottiHost(Deployment::biscottiHost),
      biscottiPort(Deployment::biscottiPort), keychainUrl(QString(Deployment::keychainUrl)),
      serviceUrl(QString(Deployment::serviceUrl)), chatNick(defaultNick), chatColours(defaultChatColours())
{
}
