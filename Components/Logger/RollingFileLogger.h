#pragma once

#include <QFile>
#include <QList>
#include <QMutex>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <memory>

class QSettings;
struct BoundedNumber;

/// Appends lines to a file and rolls it over when it has grown to its limit: "name" becomes "name.1", that "name.2",
/// up to the number of old files to keep.
///
/// Where, how large and how many come from the settings, group "logger": logFileName (or logFileNameSuffix and
/// logFileNameExtension for the default place in the home directory), maximumFileSize in bytes, numberOfOldFiles;
/// numbers outside their bounds are brought inside.
/// Any thread may log. A file that cannot be opened silences the object for good.
class RollingFileLogger : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 leastMaximumFileSize = 100;
    static constexpr qint64 mostMaximumFileSize = 1'000'000'000;
    static constexpr qint64 mostOldFiles = 1000;

    explicit RollingFileLogger(QObject* parent = nullptr);
    ~RollingFileLogger() override;

    /// Appends the text and a line end, opening the file if need be and rolling it when it is full.
    void log(char const* text);

    /// Where the settings say that the log is.
    static QString configuredFileName();

    /// What was wrong with the settings, in words.
    QStringList complaints() const { return _complaints; }

private:
    void create();
    void roll();
    QList<qint64> oldFiles() const;
    qint64 read(QSettings const& settings, BoundedNumber const& number);

    QStringList _complaints; ///< This and the next three are set by the constructor only.
    qint64 _maximumFileSize; ///< Bytes.
    qint64 _numberOfOldFiles;
    QString _fileName;

    QMutex _mutex; ///< Guards everything below, and the file itself.
    std::unique_ptr<QFile> _file;
    std::unique_ptr<QTextStream> _stream;
    qint64 _currentSize = 0; ///< Bytes, counting two for each line end.
    bool _failed = false;
};
