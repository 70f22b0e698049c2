#pragma once

#include "LittleEndianReader.h"

/// Writes little-endian fields, all of what LittleEndianReader reads and in the same words. Counts are written as
/// they stand in their fields, records and arrays as many as there are.
class LittleEndianWriter
{
public:
    static constexpr bool isReader = false;

    QByteArray const& bytes() const { return _bytes; }

    template<typename... Fields>
    void operator()(Fields const&... values)
    {
        (field(values), ...);
    }

    template<typename Sequence>
    void array(Sequence const& sequence, qint64 = 0)
    {
        if (sequence.isEmpty())
            return;
        qsizetype const end = _bytes.size();
        _bytes.resize(end + sequence.size() * qsizetype(sizeof(LittleEndianUnit<Sequence>)));
        qToLittleEndian<LittleEndianUnit<Sequence>>(sequence.constData(), sequence.size(), _bytes.data() + end);
    }

    template<typename Sequence>
    void arrayUpTo(Sequence const& sequence, qint64)
    {
        array(sequence);
    }

    template<typename Count, typename Sequence>
    void counted(Count, Sequence const& sequence)
    {
        field(static_cast<Count>(sequence.size()));
        array(sequence);
    }

    template<typename Record>
    void records(quint32, QList<Record> const& list)
    {
        for (Record const& record : list)
            field(record);
    }

    void rest(QByteArray const& bytes) { _bytes += bytes; }

private:
    template<std::unsigned_integral Number>
    void field(Number value)
    {
        Number const bytes = qToLittleEndian(value);
        _bytes.append(reinterpret_cast<char const*>(&bytes), sizeof bytes);
    }

    void field(double value) { field(std::bit_cast<quint64>(value)); }

    template<typename Element, std::size_t size>
    void field(std::array<Element, size> const& elements)
    {
        for (Element const& element : elements)
            field(element);
    }

    void field(QUuid const& guid)
    {
        (*this)(guid.data1, guid.data2, guid.data3);
        _bytes.append(reinterpret_cast<char const*>(guid.data4), sizeof guid.data4);
    }

    /// Fields are listed for both directions, so the list is not const; writing leaves them as they are.
    template<typename Structure>
    requires requires(Structure& structure, LittleEndianWriter& out) { structure.fields(out); }
    void field(Structure const& structure) { const_cast<Structure&>(structure).fields(*this); }

    QByteArray _bytes;
};
