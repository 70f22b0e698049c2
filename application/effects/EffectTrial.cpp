#include "EffectTrial.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace
{
constexpr qint64 longestAnswer = 8 * EffectTrial::longestLog; ///< Bytes; a letter may become several.
}

EffectTrial::EffectTrial(QString const& program, QObject* parent) : QObject(parent), _program(program)
{
    _timer.setSingleShot(true);
    _timer.setInterval(limit);
    connect(&_timer, &QTimer::timeout, this, [this] { finish({EffectTrialResult::Verdict::TooSlow, {}}); });
}

EffectTrial::~EffectTrial()
{
    cancel();
}

void EffectTrial::start(QString const& source, QSize const& picture)
{
    cancel();
    _picture = picture;
    _process = new QProcess(QCoreApplication::instance()); // One that is cancelled ends after this object.
    connect(_process, &QProcess::finished, this,
            [this](int, QProcess::ExitStatus status) { onEnded(status == QProcess::CrashExit); });
    connect(_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            finish({});
    });
    _process->setProcessChannelMode(QProcess::SeparateChannels);
    _process->setStandardErrorFile(QProcess::nullDevice());
    _process->start(_program, {argument});
    if (!_process)
        return; // It has failed already.
    _process->write(source.toUtf8());
    _process->closeWriteChannel();
    _timer.start();
}

void EffectTrial::cancel()
{
    _timer.stop();
    QProcess* const process = std::exchange(_process, nullptr);
    if (!process)
        return;
    process->disconnect(this);
    // It goes by itself once it has ended; waiting for that is nobody's business here.
    connect(process, &QProcess::finished, process, &QObject::deleteLater);
    if (process->state() == QProcess::NotRunning)
        process->deleteLater();
    else
        process->kill();
}

void EffectTrial::onEnded(bool isCrash)
{
    using Verdict = EffectTrialResult::Verdict;
    QJsonObject const answer = QJsonDocument::fromJson(_process->read(longestAnswer)).object();
    if (isCrash)
        return finish({Verdict::Died, {}});
    if (!answer.contains("compiled"))
        return finish({});
    if (!answer.value("compiled").toBool())
        return finish({Verdict::Refused, answer.value("log").toString()});
    if (answer.value("compileMilliseconds").toDouble() > longestCompilation)
        return finish({Verdict::SlowToCompile, answer.value("log").toString()});
    double const pixels = static_cast<double>(_picture.width()) * _picture.height();
    double const perMegapixel = answer.value("microsecondsPerMegapixel").toDouble();
    double const milliseconds = perMegapixel / 1000.0 * pixels / 1e6;
    finish({milliseconds > longestPicture ? Verdict::TooSlow : Verdict::Passed, answer.value("log").toString(),
            milliseconds, perMegapixel});
}

void EffectTrial::finish(EffectTrialResult const& result)
{
    cancel();
    emit finished(result);
}

QByteArray EffectTrial::mark(QString const& source, QString const& driver)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(source.toUtf8());
    hash.addData(QByteArray(1, '\0'));
    hash.addData(driver.toUtf8());
    return hash.result().toHex();
}

QString EffectTrial::words(EffectTrialResult const& result)
{
    switch (result.verdict) {
    case EffectTrialResult::Verdict::Passed:
        return {};
    case EffectTrialResult::Verdict::Refused:
        return tr("The graphics driver does not compile this effect.");
    case EffectTrialResult::Verdict::TooSlow:
        return result.milliseconds > 0.0
                   ? tr("One picture would take about %1 ms with this effect. That is too long to play: it was "
                        "switched off.")
                         .arg(qRound(result.milliseconds))
                   : tr("A picture is never finished with this effect. It was switched off.");
    case EffectTrialResult::Verdict::SlowToCompile:
        return tr("The graphics driver takes too long to compile this effect. It was switched off.");
    case EffectTrialResult::Verdict::Died:
        return tr("The graphics driver fails with this effect. It was switched off.");
    case EffectTrialResult::Verdict::NotPossible:
        break;
    }
    return tr("This effect could not be tried, so it is not shown.");
}
