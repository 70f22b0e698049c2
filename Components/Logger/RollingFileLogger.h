#pragma once

#include <QFile>
#include <QMutex>
#include <QObject>
#include <QString>
#include <QTextStream>

#include <memory>

/// Appends lines to a file and rolls it over when it has grown to its limit: "name" becomes "name.1", that "name.2",
/// up to the number of old files to keep.
///
/// Where, how large and how many come from the settings, group "logger": logFileName (or logFileNameSuffix and
/// logFileNameExtension for the default place in the home directory), maximumFileSize in bytes, numberOfOldFiles.
/// Any thread may log. A file that cannot be opened silences the object for good.
class RollingFileLogger : public QObject
{
    Q_OBJECT

public:
    explicit RollingFileLogger(QObject* parent = nullptr);
    ~RollingFileLogger() override;

    /// Appends the text and a line end, opening the file if need be and rolling it when it is full.
    void log(char const* text);

private:
    void create();
    void roll();

    unsigned int _maximumFileSize; ///< Bytes.
    unsigned int _numberOfOldFiles;
    QString _fileName;

    QMutex _mutex; ///< Guards everything below, and the file itself.
    std::unique_ptr<QFile> _file;
    std::unique_ptr<QTextStream> _stream;
    qint64 _currentSize = 0; ///< Bytes, counting two for each line end.
    bool _failed = false;
};
