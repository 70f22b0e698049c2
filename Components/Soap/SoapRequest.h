#pragma once

#include "SoapMessage.h"
#include "SoapReply.h"
#include "SoapService.h"

#include <QObject>
#include <QString>

class SoapTransport;

/// The base of all account calls: one call at a time, those made meanwhile are dropped.
///
/// Main thread only. Cancelling is silent; a call that runs when the object is destroyed is ended.
class SoapRequest : public QObject
{
    Q_OBJECT

public:
    static constexpr char const* servicePath = "/client/api";

    explicit SoapRequest(SoapService const& service, QObject* parent = nullptr);
    ~SoapRequest() override;

    bool isWaitingForResponse() const { return _isWaiting; }

    /// Ends the call that is under way; nothing follows.
    void cancelRequest();

    /// Makes a call, unless one is under way. requestCompleted() follows from the event loop.
    void submitRequest(SoapMessage const& message, QString const& path = servicePath);

signals:
    /// A call has ended: with the text of the value that it returned, or with what went wrong, in words.
    void requestCompleted(bool ok, QString text);

protected:
    /// The method that was called last, and the value that it returned; that is not valid unless the call succeeded.
    QString method() const { return _method; }
    SoapValue returnValue() const { return _returnValue; }

private slots:
    void onResponseReady(SoapTransport* transport);

private:
    SoapTransport* const _transport;
    bool _isWaiting = false;
    QString _method;
    SoapValue _returnValue;
};
