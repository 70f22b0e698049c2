#pragma once

#include "SponsorshipResponse.h"
#include "Uri.h"

#include <QImage>
#include <QObject>
#include <QSet>
#include <QString>

class Logger;
class MemoQueue;
class WebCache;

/// Where the film and the logo of a pre-roll come from: out of the cache, if they are there. All that touches the
/// disk is done by memos. Main thread only.
class SponsorshipMedia : public QObject
{
    Q_OBJECT

public:
    /// All are borrowed. Films out of the cache get a file of their own in the directory, which is made on demand.
    SponsorshipMedia(WebCache* cache, MemoQueue* memos, QString const& directory, QObject* parent = nullptr);
    ~SponsorshipMedia() override;

    /// Watches what the response names, in place of that of the one before; prepared() follows.
    void prepare(SponsorshipResponse const& response);
    /// prepared() does not follow any more.
    void cancel() { ++_number; }
    /// The same, and nothing of it is watched any more.
    void forget();

signals:
    /// The address to play the film from, and the logo.
    void prepared(SponsorshipResponse response, QString address, QImage logo);
    /// The logo of the last response has come into the cache.
    void logoUpdated(QImage logo);

public slots:
    void onUpdated(Uri const& uri);

private:
    class Memo;

    void watch(QString const& url);
    // By memos:
    void read(SponsorshipResponse const& response, int number);
    void readLogo(QString const& url);
    QString mediaAddress(QString const& url) const;
    QImage logo(QString const& url) const;

    static Logger* log;

    WebCache* const _cache;
    MemoQueue* const _memos;
    QString const _directory;
    QString _logoUrl;   ///< Of the last response.
    QSet<Uri> _watched; ///< For it.
    int _number = 0;    ///< Of what is prepared; an older one is not wanted any more.
};
