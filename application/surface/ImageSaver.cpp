#include "ImageSaver.h"

#include <QDir>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QImageWriter>
#include <QPromise>
#include <QSaveFile>
#include <QThreadPool>

#include <memory>

namespace
{
/// Under its name only once all of it is there: a disk may be full.
bool writeImage(QImage const& image, QString const& path)
{
    QFileInfo const info(path);
    QDir().mkpath(info.absolutePath());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QImageWriter writer(&file, info.suffix().toLatin1());
    return writer.write(image) && file.commit();
}
} // namespace

void ImageSaver::save(QImage const& image, QString const& path)
{
    auto const promise = std::make_shared<QPromise<bool>>();
    auto* const watcher = new QFutureWatcher<bool>(this);
    connect(watcher, &QFutureWatcher<bool>::finished, this, [this, watcher, path] {
        watcher->deleteLater();
        emit saved(watcher->result() ? path : QString());
    });
    promise->start();
    watcher->setFuture(promise->future());
    QThreadPool::globalInstance()->start([promise, image, path] {
        promise->addResult(!image.isNull() && writeImage(image, path));
        promise->finish();
    });
}
