#pragma once

#include "QtTcpSocketFactory.h"

#include <QString>

#include <functional>

/// Makes QtTcpSockets whose errors are told in words as well.
class ObservedTcpSocketFactory : public QtTcpSocketFactory
{
public:
    explicit ObservedTcpSocketFactory(std::function<void(QString const&)> onError) : _onError(std::move(onError)) {}

    TcpSocket* createTcpSocket(QObject* parent) override;

private:
    std::function<void(QString const&)> const _onError;
};
