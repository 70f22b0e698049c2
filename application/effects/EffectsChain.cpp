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
    connect(&_probation, &QTimer::timeout, &_library, &EffectsLibrary::endTrying);
    connect(&_trial, &EffectTrial::finished, this, &EffectsChain::onTried);
    connect(&_library, &EffectsLibrary::loaded, this, &EffectsChain::onLibraryLoaded);
    connect(&_library, &EffectsLibrary::changed, this, &EffectsChain::update);
    connect(&_appData.settings, &AppSettings::enableVideoPostProcessingChanged, this, [this] {
        _library.setEnabled(_appData.settings.enableVideoPostProcessing());
        update();
    });
    connect(&_surface, &GLWidget::initialized, this, [this] {
        if (_surface.makeCurrent())
            _driver = GLExtension::vendor() + '/' + GLExtension::renderer() + '/' + GLExtension::version();
        update();
    });
}

EffectsChain::~EffectsChain()
{
    if (_probation.isActive())
        _library.endTrying(); // The program ends as it should.
}

void EffectsChain::onLibraryLoaded()
{
    if (_library.isEnabled())
        _appData.settings.setEnableVideoPostProcessing(true);
    else
        _library.setEnabled(_appData.settings.enableVideoPostProcessing());
}

bool EffectsChain::isTrusted(Effect const& effect) const
{
    QByteArray const mark = EffectTrial::mark(effect.source, _driver);
    return !_refused.contains(mark) && (effect.isTemplate || effect.passed == mark);
}

/// One step towards what the library wants; each step that ends leads here again.
void EffectsChain::update()
{
    if (_driver.isEmpty() || !_library.isLoaded())
        return;
    bool const isShown = _appData.settings.enableVideoPostProcessing();
    if (_trial.isRunning()) {
        Effect const* const tried = _library.find(_triedName);
        if (tried && tried->source == _triedSource)
            return;
        _trial.cancel(); // It has changed, or gone, meanwhile.
    }
    for (Effect const& effect : _library.effects()) {
        bool const isWanted = (isShown && effect.isOn) || effect.name == _watched;
        if (isWanted && !isTrusted(effect) && !_refused.contains(EffectTrial::mark(effect.source, _driver)))
            return tryNext(effect);
    }
    if (isShown)
        compile();
}

void EffectsChain::setWatched(QString const& name)
{
    if (_watched == name)
        return;
    _watched = name;
    update();
}

void EffectsChain::tryNext(Effect const& effect)
{
    _triedName = effect.name;
    _triedSource = effect.source;
    _trial.start(_triedSource, pictureSize());
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
    emit examined(name, words, result.log);
    if (result.verdict == Verdict::Passed)
        return _library.setPassed(name, mark);
    _refused.insert(mark);
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
    if (fresh.isEmpty())
        return install();
    _isCompiling = true;
    _library.beginTrying(fresh, [this] {
        _isCompiling = false;
        _probation.start();
        install();
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
    if (!isCompiled) {
        LOG_ERROR("Effect %s: %s", qPrintable(effect.name), qPrintable(shader->infoLog()));
        _refused.insert(EffectTrial::mark(effect.source, _driver));
    }
    emit examined(effect.name,
                  isCompiled ? QString() : EffectTrial::words({EffectTrialResult::Verdict::Refused, {}, 0}),
                  shader->infoLog());
    return shader->isCompiled() ? std::move(shader) : nullptr;
}

void EffectsChain::install()
{
    QStringList before;
    for (GLMovieShader const* const shader : _appData.postProcessingShaders())
        before.append(shader->name() + '\n' + shader->source());
    QStringList wanted;
    for (Effect const& effect : _library.effects())
        if (effect.isOn)
            wanted.append(effect.name + '\n' + effect.source);
    if (wanted == before || !_surface.makeCurrent())
        return;
    std::vector<std::unique_ptr<GLMovieShader>> old = _appData.videoPrograms.takePostProcessingShaders();
    std::vector<std::unique_ptr<GLMovieShader>> shaders;
    for (Effect const& effect : _library.effects())
        if (std::unique_ptr<GLMovieShader> shader = effect.isOn ? shaderFor(effect, old) : nullptr)
            shaders.push_back(std::move(shader));
    _appData.videoPrograms.addPostProcessingShaders(std::move(shaders));
}
