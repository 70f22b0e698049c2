#include "SupportReport.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "GLExtension.h"
#include "LinuxAudioConfig.h"
#include "LocalhostInfo.h"
#include "RollingFileLogger.h"
#include "SettingsText.h"
#include "StreamInformation.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLocale>
#include <QRegularExpression>
#include <QScreen>
#include <QWidget>

#include <curl/curlver.h>

extern "C" {
#include <libavutil/avutil.h>
}

namespace
{

QString section(QString const& title, QStringList const& lines)
{
    return title + '\n' + QString(title.size(), '-') + '\n' + lines.join('\n') + "\n\n";
}

QString textOfSetting(QVariant const& value)
{
    if (value.typeId() == QMetaType::QStringList)
        return value.toStringList().join(", ");
    if (value.typeId() == QMetaType::QPoint)
        return QString("%1, %2").arg(value.toPoint().x()).arg(value.toPoint().y());
    if (value.typeId() == QMetaType::QSize)
        return QString("%1 x %2").arg(value.toSize().width()).arg(value.toSize().height());
    return value.toString();
}

} // namespace

QStringList SupportReport::libraries()
{
    return {QString("Qt %1").arg(qVersion()), QString("FFmpeg %1").arg(av_version_info()),
            QStringLiteral("OpenAL Soft"), QString("libcurl %1").arg(LIBCURL_VERSION), QStringLiteral("OpenSSL")};
}

QString SupportReport::ofProgram(AppData const& appData, QWidget const& window)
{
    LocalhostInfo const host;
    QString report =
        section("Program", {"Ombravision " + appData.settings.version(), libraries().join(", "),
                            host.operatingSystem() + ", " + host.architecture(),
                            "Qt platform " + QGuiApplication::platformName() + ", session " +
                                qEnvironmentVariable("XDG_SESSION_TYPE") + ", desktop " +
                                qEnvironmentVariable("XDG_CURRENT_DESKTOP") + ", language " + QLocale().name()});
    report += section("OpenGL", {GLExtension::vendor(), GLExtension::renderer(), GLExtension::version(),
                                 GLExtension::isSoftwareRenderer() ? "draws on the processor" : "draws on a card"});
    QStringList screens;
    for (QScreen const* const screen : QGuiApplication::screens()) {
        QRect const place = screen->geometry();
        screens.append(QString("%1: %2 x %3 at %4, %5; %6 Hz; ratio %7")
                           .arg(screen->name())
                           .arg(place.width())
                           .arg(place.height())
                           .arg(place.x())
                           .arg(place.y())
                           .arg(screen->refreshRate())
                           .arg(screen->devicePixelRatio()));
    }
    screens.append(QString("window: %1 x %2").arg(window.width()).arg(window.height()));
    report += section("Screens", screens);
    QStringList streams;
    for (Channel const* const channel : appData.channelManager()->openChannels())
        for (StreamInformation const& stream : channel->streamInformation())
            streams.append(stream.asText());
    report += section("Open channels", streams.isEmpty() ? QStringList("none") : streams);
    return withoutSecrets(report + settings(appData));
}

QString SupportReport::settings(AppData const& appData)
{
    QStringList lines;
    SettingsValues const& values = appData.settings.values();
    for (Setting const& setting : settingsTable()) {
        QString const name = QString("%1/%2").arg(setting.group, setting.key);
        bool const isPrivate = setting.storage == SettingStorage::Enciphered || name == "proxy/ProxyUser" ||
                               name == "streams/history" || name == "videoWindow/mmsClientGuid" ||
                               name == "alerts/alertHistory" || name == "videoWindow/activeChannel" ||
                               name == "videoWindow/openChannels" || QString(setting.group) == "channels";
        if (!*setting.key)
            continue;
        QString const text = std::visit(
            [&values](auto field) {
                if constexpr (std::is_same_v<decltype(field), QList<ChatColour> SettingsValues::*> ||
                              std::is_same_v<decltype(field), QByteArray SettingsValues::*>)
                    return QString("(%1)").arg((values.*field).size());
                else
                    return textOfSetting(SettingsText::form(values.*field));
            },
            setting.field);
        lines.append(name + ": " + (isPrivate ? text.isEmpty() ? "(none)" : "(left out)" : text));
    }
    return section("Settings", lines);
}

QString SupportReport::ofSystem()
{
    return withoutSecrets(section("Sound devices", LinuxAudioConfig().listDevices()) +
                          section("The end of the log", {logEnd()}));
}

QString SupportReport::logEnd()
{
    QFile file(RollingFileLogger::configuredFileName());
    if (!file.open(QIODevice::ReadOnly))
        return QString("(%1)").arg(file.errorString());
    if (file.size() > logBytes)
        file.seek(file.size() - logBytes);
    QString const text = QString::fromUtf8(file.read(logBytes));
    return file.size() > logBytes ? text.mid(text.indexOf('\n') + 1) : text;
}

QString SupportReport::withoutSecrets(QString const& text)
{
    static QRegularExpression const userInfo(QStringLiteral("(\\w://)[^\\s/@]+@"));
    static QRegularExpression const email(QStringLiteral("[^\\s@<>()\"',;:/]+@[^\\s@<>()\"',;:/]+"));
    static QRegularExpression const query(QStringLiteral("(\\w://[^\\s?]+)\\?\\S+"));
    static QRegularExpression const ownChannel(QStringLiteral("\\b(latte|file)_[0-9a-f]{8,}"));
    QString result = text;
    result.replace(userInfo, "\\1");
    result.replace(query, "\\1?...");
    result.replace(ownChannel, "\\1_...");
    result.replace(email, "(e-mail)");
    if (QDir::homePath().size() > 1)
        result.replace(QDir::homePath(), "~");
    return result;
}
