#pragma once

#include "BiscottiTopic.h"
#include "BiscottiTopicExpression.h"
#include "Deployment.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// The command line of ombravision-biscotti. A value.
struct BiscottiToolOptions {
    enum class Command { Subscribe, Post };

    static constexpr int maximumTimeout = 86'400; ///< Seconds.

    Command command = Command::Subscribe;
    QString host = QString::fromLatin1(Deployment::biscottiHost);
    quint16 port = Deployment::biscottiPort;
    QList<BiscottiTopic> topics; ///< One to post to; one or more to subscribe to.
    QByteArray body;
    bool bodyFromInput = false; ///< The body is what standard input holds.
    BiscottiTopicExpression audience;
    QString sender;
    int timeout = 10; ///< Seconds that a post may take.
    int count = 0;    ///< How many posts to wait for; 0 for no end.
    bool bodiesOnly = false;
    bool debug = false;
    bool showHelp = false;
    bool showVersion = false;

    /// Reads the arguments, without the program's name. Nothing, and a text that tells why, when one is wrong.
    static std::optional<BiscottiToolOptions> parse(QStringList const& arguments, QString& error);

    static QString helpText();
};
