#include "EffectsChain.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "EffectsLibrary.h"
#include "GLExtension.h"
#include "GLMovieShader.h"
#include "GLWidget.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <algorithm>
#include <utility>

Logger* EffectsChain::log = LoggerManager::logger();

namespace
{
constexpr QSize usualPicture(1280, 720); // While nothing plays.
}

EffectsChain::EffectsChain(AppData& appData, EffectsLibrary& library, GLWidget& surface, QString const& program)
    : _appData(appData), _library(library), _surface(surface), _trial(program)
{
    _probation.setSingleShot(true);
    _probation.setInterval(probation);
    connect(&_probation, &QTimer::timeout, this, [this] {
        _onProbation.clear();
        _library.endTrying();
    });
    connect(&_trial, &EffectTrial::finished, this, &EffectsChain::onTried);
    connect(&_library, &EffectsLibrary::loaded, this, &EffectsChain::onLibraryLoaded);
    connect(&_library, &EffectsLibrary::changed, this, &EffectsChain::update);
    connect(&_library, &EffectsLibrary::switchedOn, this, [this](QString const& name) {
        _findings.remove(name); // What has been refused is tried once more.
    });
    connect(&_appData.settings, &AppSettings::enableVideoPostProcessingChanged, this, [this] {
        _library.setEnabled(_appData.settings.enableVideoPostProcessing());
        update();
    });
    connect(&_surface, &GLWidget::initialized, this, [this] {
        if (_surface.makeCurrent())
            _driver = GLExtension::vendor() + '/' + GLExtension::renderer() + '/' + GLExtension::version();
        update();
    });
    follow(*_appData.channelManager());
}

/// Larger pictures, or more of them, take longer. Queued: the channel is not done with it.
void EffectsChain::follow(ChannelManager const& channels)
{
    connect(&channels, &ChannelManager::streamOpened, this, &EffectsChain::update, Qt::QueuedConnection);
    connect(&channels, &ChannelManager::channelOpened, this, &EffectsChain::update, Qt::QueuedConnection);
}

EffectsChain::~EffectsChain()
{
    if (_isCompiling || _probation.isActive())
        _library.endTrying(); // The program ends as it should.
}

void EffectsChain::onLibraryLoaded()
{
    if (_library.isEnabled())
        _appData.settings.setEnableVideoPostProcessing(true);
    else
        _library.setEnabled(_appData.settings.enableVideoPostProcessing());
}

EffectsChain::Finding EffectsChain::finding(QString const& name) const
{
    Effect const* const effect = _library.find(name);
    Finding const found = _findings.value(name);
    return effect && found.mark == EffectTrial::mark(effect->source, _driver) ? found : Finding();
}

void EffectsChain::tell(Finding const& finding, QString const& name)
{
    _findings.insert(name, finding);
    emit examined(name, finding.words, finding.log);
}

bool EffectsChain::isTrusted(Effect const& effect) const
{
    return !finding(effect.name).isRefused &&
           (effect.isTemplate || effect.passed == EffectTrial::mark(effect.source, _driver));
}

/// Whether it is to be tried, if that has not been done.
bool EffectsChain::isWanted(Effect const& effect) const
{
    return (_appData.settings.enableVideoPostProcessing() && effect.isOn) || effect.name == _watched;
}

/// One step towards what the library wants; each step that ends leads here again.
void EffectsChain::update()
{
    if (_driver.isEmpty() || !_library.isLoaded())
        return;
    if (_trial.isRunning()) {
        Effect const* const tried = _library.find(_triedName);
        if (!tried || tried->source != _triedSource || !isWanted(*tried))
            _trial.cancel(); // It has changed, or gone, meanwhile.
    }
    if (!_trial.isRunning())
        tryNext();
    // The others need not wait for it.
    if (_appData.settings.enableVideoPostProcessing() && !leaveOutSlow())
        compile();
}

/// Switches off what makes all effects together too slow for what plays, the last ones first; that leads to update()
/// again. The order of the effects is the viewer's.
bool EffectsChain::leaveOutSlow()
{
    constexpr double microseconds = 1000.0; // In one ms.
    double milliseconds = 0.0;
    for (Effect const& effect : _library.effects()) {
        if (!effect.isOn || !isTrusted(effect))
            continue;
        milliseconds += effect.cost * megapixels() / microseconds;
        if (milliseconds <= EffectTrial::longestPicture)
            continue;
        QString const name = effect.name;
        QString const words = EffectTrial::words({EffectTrialResult::Verdict::TooSlow, {}, milliseconds});
        LOG_WARNING("Effect %s: %s", qUtf8Printable(name), qUtf8Printable(words));
        emit examined(name, words, {});
        _library.setFault(name, words);
        return true;
    }
    return false;
}

/// Of all pictures that are shown beside each other.
double EffectsChain::megapixels() const
{
    constexpr double million = 1e6;
    double pixels = 0.0;
    for (Channel const* const channel : _appData.channelManager()->openChannels())
        pixels += static_cast<double>(channel->movieSize().width()) * channel->movieSize().height();
    return pixels / million;
}

void EffectsChain::setWatched(QString const& name)
{
    if (_watched == name)
        return;
    _watched = name;
    update();
}

void EffectsChain::tryNext()
{
    for (Effect const& effect : _library.effects()) {
        if (!isWanted(effect) || isTrusted(effect) || finding(effect.name).isRefused)
            continue;
        _triedName = effect.name;
        _triedSource = effect.source;
        _trial.start(_triedSource, pictureSize());
        return;
    }
}

QSize EffectsChain::pictureSize() const
{
    Channel const* const channel = _appData.channelManager()->activeChannel();
    QSize const size = channel ? channel->movieSize() : QSize();
    return size.isEmpty() ? usualPicture : size;
}

void EffectsChain::onTried(EffectTrialResult const& result)
{
    using Verdict = EffectTrialResult::Verdict;
    QString const words = EffectTrial::words(result);
    QString const name = _triedName;
    QByteArray const mark = EffectTrial::mark(_triedSource, _driver);
    if (!words.isEmpty())
        LOG_WARNING("Effect %s: %s %s", qUtf8Printable(name), qUtf8Printable(words), qUtf8Printable(result.log));
    tell({mark, result.verdict != Verdict::Passed, words, result.log}, name);
    if (result.verdict == Verdict::Passed)
        return _library.setPassed(name, mark, result.microsecondsPerMegapixel);
    if (result.verdict == Verdict::Refused || result.verdict == Verdict::NotPossible)
        update(); // It may be on its way to something better, and what it was goes on.
    else
        _library.setFault(name, words);
}

/// Tells the disk first what is about to be compiled here, unless that is known to do no harm.
void EffectsChain::compile()
{
    if (_isCompiling)
        return;
    QStringList fresh;
    QList<GLMovieShader*> const shaders = _appData.postProcessingShaders();
    for (Effect const& effect : _library.effects()) {
        auto const isIt = [&effect](GLMovieShader const* shader) {
            return shader->name() == effect.name && shader->source() == effect.source;
        };
        if (effect.isOn && isTrusted(effect) && std::ranges::none_of(shaders, isIt))
            fresh.append(effect.name);
    }
    if (fresh.isEmpty()) {
        install();
        return;
    }
    _isCompiling = true;
    _probation.stop(); // Its end would take the marker away.
    for (QString const& name : std::as_const(fresh))
        if (!_onProbation.contains(name))
            _onProbation.append(name); // Beside those that have not been there for long enough.
    _library.beginTrying(_onProbation, [this] {
        _isCompiling = false;
        _probation.start();
        if (install())
            update(); // What has changed meanwhile.
    });
}

std::unique_ptr<GLMovieShader> EffectsChain::shaderFor(Effect const& effect,
                                                       std::vector<std::unique_ptr<GLMovieShader>>& old)
{
    auto const known =
        std::ranges::find_if(old, [&effect](auto const& shader) { return shader && shader->name() == effect.name; });
    std::unique_ptr<GLMovieShader> shader = known == old.end() ? nullptr : std::move(*known);
    if (!isTrusted(effect) || (shader && shader->source() == effect.source))
        return shader; // What it was last.
    if (!shader)
        shader = std::make_unique<GLMovieShader>();
    shader->create(effect.name, effect.source);
    bool const isCompiled = shader->compile(); // If not, the program of before goes on.
    if (!isCompiled)
        LOG_ERROR("Effect %s: %s", qPrintable(effect.name), qPrintable(shader->infoLog()));
    tell({EffectTrial::mark(effect.source, _driver), !isCompiled,
          isCompiled ? QString() : EffectTrial::words({EffectTrialResult::Verdict::Refused, {}}), shader->infoLog()},
         effect.name);
    return shader->isCompiled() ? std::move(shader) : nullptr;
}

/// What there is to be shown, by name and source; of what is not trusted, what it was last.
QStringList EffectsChain::installable() const
{
    QStringList found;
    QList<GLMovieShader*> const shaders = _appData.postProcessingShaders();
    for (Effect const& effect : _library.effects()) {
        auto const last = std::ranges::find(shaders, effect.name, &GLMovieShader::name);
        if (effect.isOn && isTrusted(effect))
            found.append(effect.name + '\n' + effect.source);
        else if (effect.isOn && last != shaders.end())
            found.append(effect.name + '\n' + (*last)->source());
    }
    return found;
}

/// False where nothing can be done with OpenGL now.
bool EffectsChain::install()
{
    QStringList before;
    for (GLMovieShader const* const shader : _appData.postProcessingShaders())
        before.append(shader->name() + '\n' + shader->source());
    if (installable() == before)
        return true;
    if (!_surface.makeCurrent())
        return false;
    std::vector<std::unique_ptr<GLMovieShader>> old = _appData.videoPrograms.takePostProcessingShaders();
    std::vector<std::unique_ptr<GLMovieShader>> shaders;
    for (Effect const& effect : _library.effects())
        if (std::unique_ptr<GLMovieShader> shader = effect.isOn ? shaderFor(effect, old) : nullptr)
            shaders.push_back(std::move(shader));
    _appData.videoPrograms.addPostProcessingShaders(std::move(shaders));
    return true;
}
