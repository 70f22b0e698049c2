#pragma once

#include <QMutex>
#include <QString>
#include <QStringList>

/// Collects what is logged while it lives, at every level, in place of the log file. One at a time.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    LogCapture(LogCapture const&) = delete;
    LogCapture& operator=(LogCapture const&) = delete;

    /// The whole lines logged so far, from any thread.
    QStringList lines() const;

    /// Whether some line holds the text.
    bool contains(QString const& text) const;

    /// How many lines hold the text.
    int count(QString const& text) const;

private:
    static void handleMessage(QtMsgType type, QMessageLogContext const& context, QString const& text);

    mutable QMutex _mutex; ///< Guards _lines.
    QStringList _lines;
};
