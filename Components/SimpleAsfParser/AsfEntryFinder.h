#pragma once

#include <QByteArray>
#include <QList>

/// Tells the data packets of a stream with which a demultiplexer can begin: those in which a picture begins that is
/// decoded without others. Without pictures, or when the header is not understood, it can begin with any.
class AsfEntryFinder
{
public:
    AsfEntryFinder() = default;

    /// Of the stream with this header.
    explicit AsfEntryFinder(QByteArray const& header);

    /// A packet in a form that is not understood is none.
    bool isEntry(QByteArray const& packet) const;

private:
    QList<int> _pictures; ///< The numbers of the streams.
};
