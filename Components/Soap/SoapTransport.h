#pragma once

#include "SoapReply.h"
#include "SoapService.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <memory>

class QNetworkReply;
class QNetworkRequest;
class QSslError;
class SoapMessage;

/// Sends one call at a time over HTTP and hands back the answer.
///
/// Certificates are verified, redirections are not followed, and what goes to this machine goes there without a
/// proxy. Main thread only.
class SoapTransport : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 maximumBytes = 4 * 1024 * 1024; ///< of an answer

    explicit SoapTransport(SoapService const& service, QObject* parent = nullptr);
    ~SoapTransport() override;

    /// Sends a call to a path of the service; must not be called while another one is under way. responseReady()
    /// follows from the event loop, whatever happens, unless it is cancelled.
    void submit(SoapMessage const& message, QString const& path);

    /// Ends the call that is under way, silently.
    void cancel();

    /// What the last call has brought.
    SoapReply const& reply() const { return _reply; }

signals:
    void responseReady(SoapTransport* transport);

private:
    QNetworkAccessManager* accessManager();
    QNetworkRequest makeRequest(QString const& action, QString const& path) const;
    void watch(QNetworkReply* reply, QString const& method);
    void giveUp(QString const& reason);
    void onSslErrors(QList<QSslError> const& errors);
    void onFinished(QString const& method);
    QString failureOf(QNetworkReply& reply) const;

    SoapService const _service;
    std::unique_ptr<QNetworkAccessManager> _direct; ///< For this machine: the shared one may have a proxy.
    QPointer<QNetworkReply> _networkReply;          ///< Null when nothing is under way.
    QTimer _limit;                                  ///< Runs out when all of a call takes too long, or it is refused.
    QString _failure;                               ///< Why the call that is under way fails, when Qt cannot know.
    SoapReply _reply;
};
