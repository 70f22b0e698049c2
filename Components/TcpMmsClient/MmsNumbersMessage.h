#pragma once

#include "TcpMmsMessage.h"

/// A message whose body is nothing but `count` numbers, each u32.
template<typename Message, TcpMmsMessage::MmsMessageType id, std::size_t count>
class MmsNumbersMessage : public TcpMmsMessageOf<Message, id>
{
public:
    /// The first number of a report that answers a request.
    int result() const { return static_cast<int>(number(0)); }

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(_numbers);
    }

protected:
    using Numbers = std::array<quint32, count>;

    MmsNumbersMessage() = default;
    explicit MmsNumbersMessage(Numbers const& numbers) : _numbers(numbers) {}

    quint32 number(std::size_t index) const { return _numbers.at(index); }

private:
    Numbers _numbers{};
};
