#pragma once

#include <QImage>
#include <QObject>
#include <QString>

/// Writes images to files, in Qt's pool of threads: compressing one takes longer than a frame of the screen, and a
/// disk may take any time. Lives on the thread that made it, and emits its signal there.
class ImageSaver : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Begins to write an image, in the format that the name's suffix tells, making the directory when needed. Waits
    /// for nothing; goes on to the end when this object is gone.
    void save(QImage const& image, QString const& path);

signals:
    /// The path of what has been written; empty on failure, as for a null image.
    void saved(QString path);
};
