#pragma once

#include "TcpMmsMessage.h"

/// A message whose body is nothing but `count` numbers, each u32.
template<TcpMmsMessage::MmsMessageType id, std::size_t count>
class MmsNumbersMessage : public TcpMmsMessageOf<MmsNumbersMessage<id, count>, id>
{
public:
    explicit MmsNumbersMessage(std::array<quint32, count> const& numbers = {}) : _numbers(numbers) {}

    /// The first number of a report that answers a request.
    int result() const { return static_cast<int>(_numbers[0]); }

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(_numbers);
    }

private:
    std::array<quint32, count> _numbers;
};
