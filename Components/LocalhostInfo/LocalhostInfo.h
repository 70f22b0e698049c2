#pragma once

#include <QObject>
#include <QString>

class Logger;

/// What the system says of this machine. Any thread may ask.
class LocalhostInfo : public QObject
{
    Q_OBJECT

public:
    explicit LocalhostInfo(QObject* parent = nullptr);
    ~LocalhostInfo() override;

    /// The name of this machine on the network; empty when the system gives none.
    QString name() const;

    /// The kind of processor, such as "x86_64".
    QString architecture() const;

    /// The operating system and its release, such as "Linux 6.1.0".
    QString operatingSystem() const;

    /// Whether windows carry the theme of a desktop that has one of its own; never on this platform.
    bool isWindowsThemed() const;

private:
    static Logger* log;
};
