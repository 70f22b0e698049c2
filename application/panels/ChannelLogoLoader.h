#pragma once

#include "ChannelLogo.h"
#include "Uri.h"

#include <QDateTime>
#include <QObject>
#include <QSet>
#include <QThreadPool>

class WebCache;

/// Logos by address, out of the web cache: fetched when they are wanted, read and decoded within bounds on a thread
/// of its own. Main thread only.
class ChannelLogoLoader : public QObject
{
    Q_OBJECT

public:
    /// The cache is borrowed, and outlives this; without one nothing is loaded.
    explicit ChannelLogoLoader(WebCache* cache, QObject* parent = nullptr);
    ~ChannelLogoLoader() override;

    /// loaded() follows, also each time the logo changes; never for what is no picture.
    void want(Uri const& logo);
    /// Somebody else watches it from now on.
    void leave(Uri const& logo) { _watched.remove(logo); }
    /// Nothing that was wanted is wanted any more. What others watch they still do.
    void forgetAll();

signals:
    void loaded(Uri logo, ChannelLogo image);

private:
    void onAvailable(Uri const& uri);
    void onUpdated(Uri const& uri, bool hasChanged);
    void load(Uri const& logo);

    WebCache* const _cache;
    QSet<Uri> _wanted;
    QSet<Uri> _watched; ///< By this, of those.
    QThreadPool _decoder;
};
