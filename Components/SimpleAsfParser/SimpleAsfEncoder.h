#pragma once

#include "SimpleAsfObject.h"

#include <QObject>
#include <QSet>
#include <QVector>

/// Writes an ASF header from copies of objects, with streams left out. Used on one thread.
class SimpleAsfEncoder : public QObject
{
    Q_OBJECT

public:
    /// Begins with copies of the objects.
    explicit SimpleAsfEncoder(QVector<SimpleAsfObject*> const& objects = {}, QObject* parent = nullptr);
    ~SimpleAsfEncoder() override;

    /// Appends a copy.
    void addObject(SimpleAsfObject const* object);
    void clearObjects();

    /// Leaves out the objects with that GUID.
    void filterObjects(QUuid const& guid);

    /// Leaves out one stream: what describes it, and its numbers and records in other objects.
    void filterStream(int streamNumber);

    /// The same for several, in one pass.
    void filterStreams(QSet<int> const& streamNumbers);

    /// The header, the Data object's own header included; empty when the Header, the Data or the File Properties
    /// object is missing.
    QByteArray createHeader();

    /// Does nothing: data packets are passed on as they came.
    void writeFrame(int streamNumber, unsigned int presentationTime, unsigned short duration,
                    unsigned long long sendTime, bool keyFrame, QByteArray const& data);

    static void uuidToStream(QUuid const& uuid, LittleEndianWriter& out);

    /// Writes all 16-bit units, and a terminator when the text does not end in one.
    static void unicodeStringToStream(QString const& text, LittleEndianWriter& out);

signals:
    void onFrame(QByteArray frame);

private:
    AsfObjectList _objects;
};
