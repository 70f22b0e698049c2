#include "SoapRequest.h"

#include "SoapTransport.h"

SoapRequest::SoapRequest(SoapService const& service, QObject* parent)
    : QObject(parent), _transport(new SoapTransport(service, this))
{
    connect(_transport, &SoapTransport::responseReady, this, &SoapRequest::onResponseReady);
}

SoapRequest::~SoapRequest() = default;

void SoapRequest::cancelRequest()
{
    _isWaiting = false;
    _transport->cancel();
}

void SoapRequest::submitRequest(SoapMessage const& message, QString const& path)
{
    if (_isWaiting)
        return;
    _isWaiting = true;
    _method = message.method();
    _returnValue = {};
    _transport->submit(message, path);
}

void SoapRequest::onResponseReady(SoapTransport* transport)
{
    _isWaiting = false;
    SoapReply const& reply = transport->reply();
    if (reply.isFault()) {
        emit requestCompleted(false, reply.faultString());
        return;
    }
    _returnValue = reply.returnValue();
    if (_returnValue.isValid())
        emit requestCompleted(true, _returnValue.toString());
    else
        emit requestCompleted(false, tr("The answer of the service is empty."));
}
