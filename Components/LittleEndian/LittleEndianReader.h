#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QUuid>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <bit>
#include <concepts>

/// What each element of an array is on the wire: a byte, or a 16-bit unit.
template<typename Sequence>
using LittleEndianUnit = std::conditional_t<sizeof(typename Sequence::value_type) == 1, quint8, quint16>;

/// Reads little-endian fields out of a bounded span of bytes, and never anything behind it. What is missing at its
/// end reads as zeros, or as empty, and the reader has then failed.
///
/// A structure lists its fields once, for reading and writing, in `template<typename Archive> void
/// fields(Archive& archive)`; LittleEndianReader and LittleEndianWriter are the archives. What a length field counts
/// is told to both; the reader goes by the length, the writer by what there is.
class LittleEndianReader
{
public:
    static constexpr bool isReader = true;

    /// The bytes are borrowed.
    explicit LittleEndianReader(QByteArrayView bytes) : _bytes(bytes), _left(bytes) {}

    /// Reads numbers, GUIDs, structures, and fixed arrays of them.
    template<typename... Fields>
    void operator()(Fields&... values)
    {
        (field(values), ...);
    }

    template<typename Field>
    Field read()
    {
        Field value{};
        field(value);
        return value;
    }

    /// So many bytes, 16-bit units of a text, or numbers, all of which have to be there.
    template<typename Sequence>
    void array(Sequence& sequence, qint64 count)
    {
        if (count > left() / qint64(sizeof(LittleEndianUnit<Sequence>)))
            return fail();
        sequence.resize(count);
        if (count > 0)
            qFromLittleEndian<LittleEndianUnit<Sequence>>(_left.data(), count, sequence.data());
        _left = _left.sliced(count * qint64(sizeof(LittleEndianUnit<Sequence>)));
    }

    /// The same, or the fewer that are left.
    template<typename Sequence>
    void arrayUpTo(Sequence& sequence, qint64 count)
    {
        array(sequence, std::min(count, left() / qint64(sizeof(LittleEndianUnit<Sequence>))));
    }

    /// An array behind its count, which is a number of the given type.
    template<typename Count, typename Sequence>
    void counted(Count, Sequence& sequence)
    {
        array(sequence, read<Count>());
    }

    /// So many records, or the fewer that are whole; behind them is whatever is left.
    template<typename Record>
    void records(quint32 count, QList<Record>& list)
    {
        for (quint32 i = 0; i < count && !_failed; ++i) {
            QByteArrayView const before = _left;
            auto const record = read<Record>();
            if (_failed) {
                _failed = false;
                _left = before;
                break;
            }
            list.append(record);
        }
    }

    /// The next bytes, or the fewer that are left; borrowed as all of them are.
    QByteArrayView take(qint64 count)
    {
        QByteArrayView const bytes = _left.first(std::clamp<qint64>(count, 0, left()));
        _left = _left.sliced(bytes.size());
        return bytes;
    }

    void rest(QByteArray& bytes) { bytes = take(left()).toByteArray(); }

    /// What is left, without reading it.
    QByteArrayView ahead() const { return _left; }
    qint64 left() const { return _left.size(); }
    qint64 position() const { return _bytes.size() - left(); }
    bool hasFailed() const { return _failed; }

private:
    void fail()
    {
        _failed = true;
        _left = {};
    }

    template<std::unsigned_integral Number>
    void field(Number& value)
    {
        bool const isThere = left() >= qint64(sizeof(Number));
        value = isThere ? qFromLittleEndian<Number>(_left.data()) : 0;
        if (isThere)
            _left = _left.sliced(sizeof(Number));
        else
            fail();
    }

    void field(double& value) { value = std::bit_cast<double>(read<quint64>()); }

    template<typename Element, std::size_t size>
    void field(std::array<Element, size>& elements)
    {
        for (Element& element : elements)
            field(element);
    }

    void field(QUuid& guid)
    {
        (*this)(guid.data1, guid.data2, guid.data3);
        for (uchar& byte : guid.data4)
            field(byte);
    }

    template<typename Structure>
    requires requires(Structure& structure, LittleEndianReader& in) { structure.fields(in); }
    void field(Structure& structure) { structure.fields(*this); }

    QByteArrayView _bytes;
    QByteArrayView _left;
    bool _failed = false;
};
