#pragma once

#include <QObject>
#include <QProcess>
#include <QSize>
#include <QString>
#include <QTimer>

#include <memory>

/// What a trial has found out.
struct EffectTrialResult {
    enum class Verdict {
        Passed,
        SlowToCompile, ///< The window would stand still while it is compiled.
        Refused,       ///< The driver does not compile it; the log says why.
        TooSlow,       ///< Or it never comes to an end.
        Died,          ///< It took the driver, and the process with it, down.
        NotPossible    ///< There was no way to try.
    };

    Verdict verdict = Verdict::NotPossible;
    QString log;                           ///< Of the compiler.
    double milliseconds = 0.0;             ///< For a whole picture, about.
    double microsecondsPerMegapixel = 0.0; ///< The same for pictures of any size.
};

/// Tries an effect where it can do no harm: another process compiles it and draws a few small pictures with it. One
/// that hangs is ended, and one that crashes takes nobody along. Main thread only, which never waits.
class EffectTrial : public QObject
{
    Q_OBJECT

public:
    static constexpr int limit = 5000;                ///< ms for the whole trial.
    static constexpr double longestPicture = 100;     ///< ms: films would be slides, and the window would not answer.
    static constexpr double longestCompilation = 500; ///< ms, with what is made at the first picture.
    static constexpr qsizetype longestLog = 64 << 10; ///< Letters.
    static constexpr char const* argument = "-try-effect";

    /// The program that understands the argument; usually this one.
    explicit EffectTrial(QString const& program, QObject* parent = nullptr);
    ~EffectTrial() override;

    /// In place of one that runs. The size is that of the pictures that it is for, in pixels.
    void start(QString const& source, QSize const& picture);
    void cancel();
    bool isRunning() const { return _process != nullptr; }

    /// What stands for a source on a driver: what has passed once there need not be tried again.
    static QByteArray mark(QString const& source, QString const& driver);

    /// The verdict in words; empty for one that passed.
    static QString words(EffectTrialResult const& result);

signals:
    void finished(EffectTrialResult result);

private:
    void onEnded(bool isCrash);
    void finish(EffectTrialResult const& result);

    QString const _program;
    QProcess* _process = nullptr;
    QTimer _timer;
    QSize _picture;
};
