#pragma once

#include "FilePropertiesObject.h"
#include "SimpleAsfObject.h"
#include "StreamObject.h"
#include "StreamPrioritizationObject.h"

#include <QList>
#include <QMap>
#include <QObject>

#include <optional>

class IAsfPacketListener;
class Logger;
class StreamPropertiesObject;

/// Reads an ASF header (ASF 1.20) into objects, and data packets far enough to check them and to put media objects
/// together. Bad input of any kind is refused by a return value; nothing is read or allocated beyond what has come.
/// Used on one thread.
class SimpleAsfParser : public QObject
{
    Q_OBJECT

public:
    /// One media object, put together from the payloads of data packets.
    struct MediaFrame {
        QUuid streamType;
        quint8 streamNumber = 127; ///< 127 until it is known.
        quint16 objectSize = 0;    ///< The low 16 bits of the size in bytes.
        quint32 sendTime = 0;      ///< Milliseconds, as the duration and the presentation time.
        quint16 duration = 0;
        quint32 presentationTime = 0;
        quint32 reserved = 0; ///< Stays 0.
        bool keyFrame = false;
        QByteArray data;
    };

    /// Incomplete media objects of one stream; one more takes the place of the earliest.
    static constexpr int maximumIncompleteFrames = 16;
    /// Bytes of all incomplete media objects; more of them are given up together.
    static constexpr qint64 maximumIncompleteBytes = qint64{16} * 1024 * 1024;

    /// A header that is not empty is parsed at once.
    explicit SimpleAsfParser(QByteArray const& header = {}, QObject* parent = nullptr);
    ~SimpleAsfParser() override;

    /// Adds the objects of a header to those there are. Returns the bytes up to and including the Data object's own
    /// header, or 0 when that is not reached; what was read until then stays.
    qint64 ParseHeader(QByteArray const& header);

    /// Reads one data packet and announces the media objects that it completes. Returns 0 for a packet that must be
    /// dropped; any other value means that it may be passed on, read to the end or not.
    qint64 ParseFrame(QByteArray const& packet);

    /// Forgets everything.
    void reset();

    /// The first object with that GUID, borrowed until reset(), or null; those in header extensions count in place.
    SimpleAsfObject* findObject(QUuid const& guid) const;
    QList<SimpleAsfObject*> findObjects(QUuid const& guid) const;

    /// The streams, first those with a Stream Properties object of their own, then those inside extended ones.
    QList<AudioStreamObject> audioStreams() const;
    QList<VideoStreamObject> videoStreams() const;
    QList<StreamObject> otherStreams() const;

    /// Bits a second, 0 when the header does not say.
    int streamBitrate(int streamNumber) const;

    /// As RFC 1766 writes it, or empty.
    QString streamLanguage(int streamNumber) const;
    QList<StreamPriorityRecord> streamPrioritization() const;

    /// The streams that are not played together with this one.
    QList<int> inBitrateMutex(int streamNumber) const;

    /// The kind of the stream, or the null GUID.
    QUuid getStreamType(int streamNumber);

    bool isSeekable() const { return _properties.flags & FilePropertiesObject::seekableFlag; }
    bool isBroadcast() const { return _properties.flags & FilePropertiesObject::broadcastFlag; }
    bool isLive() const { return _properties.flags & FilePropertiesObject::liveFlag; }
    quint32 minPacketSize() const { return _properties.minimumPacketSize; }
    quint32 maxPacketSize() const { return _properties.maximumPacketSize; }
    quint32 maxBitrate() const { return _properties.maximumBitrate; }
    int numberOfStreams() const { return _numberOfStreams; }

    /// These change the File Properties object, too; without one they change what the above return and nothing else.
    void setLive(bool live) { setFlag(FilePropertiesObject::liveFlag, live); }
    void setBroadcast(bool broadcast) { setFlag(FilePropertiesObject::broadcastFlag, broadcast); }
    void setSeekable(bool seekable) { setFlag(FilePropertiesObject::seekableFlag, seekable); }
    void setMinPacketSize(quint32 size) { setProperty(&FilePropertiesObject::minimumPacketSize, size); }
    void setMaxPacketSize(quint32 size) { setProperty(&FilePropertiesObject::maximumPacketSize, size); }
    void setMaxBitrate(quint32 bitrate) { setProperty(&FilePropertiesObject::maximumBitrate, bitrate); }

    /// Borrowed; null for none.
    void setPacketListener(IAsfPacketListener* listener) { _packetListener = listener; }

    static QUuid uuidFromStream(LittleEndianReader& in);

    /// A field whose type says its width: 0 none, the default value; 1 u8; 2 u16; 3 u32. Another type gives 0.
    static quint32 getByteWordDWordValue(int type, LittleEndianReader& in, quint32 defaultValue);

    /// That many 16-bit units, a terminator included, or the fewer that are left.
    static QString unicodeStringFromStream(LittleEndianReader& in, quint32 units);

signals:
    void onPacket(SimpleAsfParser::MediaFrame frame);

protected:
    AsfObjectList const& objects() const { return _objects; }

    /// The objects that describe the streams, in order; borrowed until reset().
    QList<StreamPropertiesObject const*> streams() const;

private:
    struct Packet;
    enum class PayloadResult { Read, End, Bad };

    void setProperty(quint32 FilePropertiesObject::*property, quint32 value);
    void setFlag(quint32 flag, bool on);
    template<typename Object>
    void addObject(QUuid const& guid, quint64 size, LittleEndianReader& in);
    template<typename View, typename Fill>
    QList<View> streamViews(Fill const& fill) const;

    bool readPacketStart(Packet& packet) const;
    PayloadResult readPayload(Packet& packet);
    qint64 singlePayloadLength(Packet const& packet, qint64 replicatedLength) const;
    qint64 multiplePayloadLength(Packet& packet) const;
    bool skipCompressedPayload(Packet& packet) const;
    void addPayload(Packet const& packet, quint8 streamByte, QByteArrayView replicated, QByteArrayView payload);
    void makeRoom(QMap<quint64, MediaFrame>& frames, qsizetype bytes);

    static Logger* log;

    AsfObjectList _objects;
    FilePropertiesObject _properties; ///< A copy of the last in the header.
    int _numberOfStreams = 0;
    QMap<int, QMap<quint64, MediaFrame>> _incompleteFrames; ///< By stream number and presentation time.
    qint64 _incompleteBytes = 0;
    std::optional<QMap<int, QUuid>> _streamTypes; ///< Not before it is first asked for.
    IAsfPacketListener* _packetListener = nullptr;
};

Q_DECLARE_METATYPE(SimpleAsfParser::MediaFrame)
