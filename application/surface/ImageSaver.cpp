#include "ImageSaver.h"

#include <QDir>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QPromise>
#include <QThreadPool>

#include <memory>

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
        QDir().mkpath(QFileInfo(path).absolutePath());
        promise->addResult(!image.isNull() && image.save(path));
        promise->finish();
    });
}
