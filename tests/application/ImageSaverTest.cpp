#include "ImageSaver.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThreadPool>

#include <gtest/gtest.h>
#include <memory>

TEST(ImageSaver, NobodyWaitsAndTheEndIsToldToThoseWhoAreStillThere)
{
    QTemporaryDir const directory;
    QImage image(64, 64, QImage::Format_RGBX8888);
    image.fill(Qt::red);
    auto saver = std::make_unique<ImageSaver>();
    QSignalSpy saved(saver.get(), &ImageSaver::saved);
    QString const path = directory.filePath("new/one.png");
    saver->save(image, path);
    EXPECT_TRUE(saved.isEmpty());
    EXPECT_TRUE(saved.wait());
    EXPECT_EQ(saved.takeFirst().first().toString(), path);
    EXPECT_EQ(QImage(path).pixelColor(5, 5), QColor(Qt::red));
    for (auto const& [what, where] : {std::pair{image, QString("/proc/nowhere/one.png")}, {QImage(), path}}) {
        saver->save(what, where);
        EXPECT_TRUE(saved.wait());
        EXPECT_EQ(saved.takeFirst().first().toString(), "");
    }
    saver->save(image, directory.filePath("late.png"));
    saver.reset();
    QThreadPool::globalInstance()->waitForDone();
    EXPECT_TRUE(QFile::exists(directory.filePath("late.png")));
}
