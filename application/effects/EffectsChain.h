#pragma once

#include "EffectTrial.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <memory>

class AppData;
class ChannelManager;
class EffectsLibrary;
class GLMovieShader;
class GLWidget;
class Logger;
struct Effect;

/// Brings the effects of the library that are on to the pictures. One that has not been tried on this driver is tried
/// first, by another process; one that does not compile leaves what was shown under its name before; what is compiled
/// here is named on the disk until it has drawn for a while. Main thread only, which is the GL thread.
class EffectsChain : public QObject
{
    Q_OBJECT

public:
    static constexpr int probation = 5000; ///< ms from the compilation until an effect is known to do no harm.

    /// All are borrowed and outlive this. The program is what tries effects, see EffectTrial.
    EffectsChain(AppData& appData, EffectsLibrary& library, GLWidget& surface, QString const& program);
    ~EffectsChain() override;

    /// This one is tried whether it is on or not: somebody is at work on it. Empty for none.
    void setWatched(QString const& name);

    /// What has been found out about the present source of an effect, in words and in the compiler's; empty for
    /// nothing.
    struct Finding {
        QByteArray mark; ///< Of which source, on which driver.
        bool isRefused = false;
        QString words;
        QString log;
    };
    Finding finding(QString const& name) const;

signals:
    /// How an effect has fared, and the compiler's log. Empty words: it is shown, or would be.
    void examined(QString name, QString words, QString log);

private:
    void follow(ChannelManager const& channels);
    void onLibraryLoaded();
    void update();
    void tryNext();
    bool isWanted(Effect const& effect) const;
    bool leaveOutSlow();
    double megapixels() const;
    void tell(Finding const& finding, QString const& name);
    void onTried(EffectTrialResult const& result);
    void compile();
    bool install();
    QStringList installable() const;
    std::unique_ptr<GLMovieShader> shaderFor(Effect const& effect, std::vector<std::unique_ptr<GLMovieShader>>& old);
    QSize pictureSize() const;
    bool isTrusted(Effect const& effect) const;

    static Logger* log;

    AppData& _appData;
    EffectsLibrary& _library;
    GLWidget& _surface;
    EffectTrial _trial;
    QString _driver;    ///< Empty before the surface stands.
    QString _triedName; ///< What runs in the trial.
    QString _triedSource;
    QString _watched;
    QHash<QString, Finding> _findings; ///< By name.
    QTimer _probation;
    QStringList _onProbation;
    bool _isCompiling = false; ///< The disk is being told.
};
