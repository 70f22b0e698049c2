#pragma once

#include "Deployment.h"
#include "PasswordHash.h"

#include <QHostAddress>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// The switches of the program. A value.
struct LocalServicesOptions {
    /// A service's port; nothing when it is switched off, 0 for a free one.
    using Port = std::optional<quint16>;

    static constexpr int maximumBurst = 60; ///< Seconds.
    static constexpr int maximumDeadEntries = 1000;
    static constexpr int maximumAgeAtMost = 86400; ///< Seconds.

    /// A name and the films of its playlist.
    struct Stream {
        QString name;
        QStringList files;
    };

    QHostAddress address = QHostAddress(QHostAddress::LocalHost);
    Port mmsHttpPort = 0;
    Port mmsTcpPort = 0;
    Port controlPort = 0;
    Port biscottiPort = Deployment::biscottiPort; ///< Where the player looks for it.
    bool isBiscottiPortGiven = false;             ///< Otherwise a free port will do as well.
    Port webPort = Deployment::servicePort;       ///< Where the player looks for it.
    Port webTlsPort = Deployment::serviceTlsPort;
    bool isWebPortGiven = false; ///< Otherwise free ports will do as well.
    QString database;            ///< A file, or ":memory:".
    QString certificateFile;
    int maximumAge = 1200; ///< Of documents, in seconds.
    int passwordIterations = PasswordHash::usualIterations;
    bool hasSeeds = true;
    QString rtsp;      ///< "HOST:PORT/PATH" of a stream of another program; empty when there is none.
    QList<Stream> hls; ///< Names and playlists of films in segments.
    QString portsFile;
    QList<Stream> streams;
    double burstSeconds = 5;
    int deadEntries = 1;
    QStringList commands; ///< Control commands to begin with.
    bool debug = false;
    QStringList debugClasses;
    bool showHelp = false;
    bool showVersion = false;

    /// Reads the arguments, without the program's name. Nothing, and a text that tells why, when one is wrong.
    static std::optional<LocalServicesOptions> parse(QStringList const& arguments, QString& error);

    static QString helpText();

    /// Beside the user's other data.
    static QString usualDatabase();
};
