#pragma once

#include "TcpMmsMessage.h"

#include <QDataStream>

#include <array>
#include <cstddef>

/// A message whose body is nothing but `count` numbers, each u32.
template<typename Message, TcpMmsMessage::MmsMessageType id, std::size_t count>
class MmsNumbersMessage : public TcpMmsMessageOf<Message, id>
{
protected:
    using Numbers = std::array<quint32, count>;

    explicit MmsNumbersMessage(Numbers const& numbers) : _numbers(numbers) {}

    explicit MmsNumbersMessage(QDataStream& stream) : TcpMmsMessageOf<Message, id>(stream)
    {
        for (quint32& number : _numbers)
            stream >> number;
    }

    void writeBody(QDataStream& stream) const override
    {
        for (quint32 const number : _numbers)
            stream << number;
    }

    quint32 number(std::size_t index) const { return _numbers.at(index); }

private:
    Numbers _numbers{};
};
