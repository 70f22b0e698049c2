#include "VideoInformationDialog.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "ChannelTitle.h"
#include "ElidedLabel.h"
#include "Look.h"
#include "SupportReport.h"

#include <QClipboard>
#include <QComboBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

namespace
{

constexpr int valueLetters = 40;
constexpr double bitsPerByte = 8.0;

QString keyOf(StreamInformation const& stream)
{
    return stream.channel + '\n' + stream.address;
}

} // namespace

VideoInformationDialog::VideoInformationDialog(AppData& appData, QWidget* parent)
    : OmbravisionDialog(appData, tr("Video Information"), parent), _form(new QFormLayout),
      _stream(new QComboBox(this))
{
    setObjectName("videoInformationDialog");
    _form->setHorizontalSpacing(Look::margin);
    _form->setVerticalSpacing(Look::halfGrid);
    _stream->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    _stream->setMinimumContentsLength(valueLetters / 2);
    _form->addRow(tr("Cha&nnel:"), _stream);
    _address = addLine(tr("Address:"));
    _transport = addLine(tr("Transport:"));
    _picture = addLine(tr("Picture:"));
    _sound = addLine(tr("Sound:"));
    _pictures = addLine(tr("Pictures:"));
    _lost = addLine(tr("Packets lost:"));
    _buffer = addLine(tr("Buffer:"));
    _bitrate = addLine(tr("Bit rate:"));
    _offset = addLine(tr("Offset of the sound:"));
    _time = addLine(tr("Time:"));
    contents()->addLayout(_form);
    QPushButton* const copyButton = addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    copyButton->setAutoDefault(false);
    connect(copyButton, &QPushButton::clicked, this, &VideoInformationDialog::copy);
    addButton(QDialogButtonBox::Close)->setDefault(true);
    connect(_stream, &QComboBox::activated, this, &VideoInformationDialog::refresh);
    _timer.setInterval(interval);
    connect(&_timer, &QTimer::timeout, this, &VideoInformationDialog::refresh);
}

ElidedLabel* VideoInformationDialog::addLine(QString const& name)
{
    auto* const value = new ElidedLabel(this);
    value->setMinimumWidth(valueLetters * fontMetrics().averageCharWidth());
    value->setProperty("name", name);
    setLine(value, {});
    _form->addRow(name, value);
    return value;
}

void VideoInformationDialog::setLine(ElidedLabel* line, QString const& text)
{
    QString const shown = text.isEmpty() ? QStringLiteral("\u2013") : text;
    if (line->fullText() == shown)
        return;
    line->setFullText(shown);
    line->setAccessibleName(line->property("name").toString() + ' ' + shown);
}

void VideoInformationDialog::showEvent(QShowEvent* event)
{
    OmbravisionDialog::showEvent(event);
    _readings.clear();
    refresh();
    _timer.start();
}

void VideoInformationDialog::hideEvent(QHideEvent* event)
{
    _timer.stop();
    OmbravisionDialog::hideEvent(event);
}

void VideoInformationDialog::refresh()
{
    QList<StreamInformation> streams;
    ChannelManager const& channels = *appData().channelManager();
    for (Channel const* const channel : channels.openChannels())
        streams.append(channel->streamInformation());
    measure(streams);
    fillStreams(streams);
    QString const chosen = _stream->currentData().toString();
    for (StreamInformation const& stream : streams)
        if (keyOf(stream) == chosen)
            return showStream(stream, _readings.value(chosen).bitrate);
    showStream({}, 0);
}

void VideoInformationDialog::measure(QList<StreamInformation> const& streams)
{
    qint64 const milliseconds = _sinceLast.isValid() ? _sinceLast.restart() : 0;
    if (!_sinceLast.isValid())
        _sinceLast.start();
    QHash<QString, Reading> readings;
    for (StreamInformation const& stream : streams) {
        auto const before = _readings.constFind(keyOf(stream));
        Reading reading = {stream.bytesRead, 0};
        bool const isKnown = before != _readings.cend() && before->bytes <= stream.bytesRead;
        if (isKnown && milliseconds < interval / 2)
            reading = *before; // Too short a time to tell.
        else if (isKnown)
            reading.bitrate = qRound64(static_cast<double>(stream.bytesRead - before->bytes) * bitsPerByte * 1000.0 /
                                       static_cast<double>(milliseconds));
        readings.insert(keyOf(stream), reading);
    }
    _readings = readings;
}

void VideoInformationDialog::fillStreams(QList<StreamInformation> const& streams)
{
    QStringList keys;
    for (StreamInformation const& stream : streams)
        keys.append(keyOf(stream));
    QStringList before;
    for (int i = 0; i < _stream->count(); ++i)
        before.append(_stream->itemData(i).toString());
    if (keys == before)
        return;
    QString const chosen = _stream->currentData().toString();
    Channel const* const active = appData().channelManager()->activeChannel();
    _stream->clear();
    for (StreamInformation const& stream : streams)
        _stream->addItem(stream.channel, keyOf(stream));
    int index = _stream->findData(chosen);
    if (index < 0 && active)
        index = _stream->findText(ChannelTitle::shown(active->desc.title()));
    _stream->setCurrentIndex(qMax(index, streams.isEmpty() ? -1 : 0));
    _stream->setEnabled(_stream->count() > 0);
}

QString VideoInformationDialog::pictureText(StreamInformation const& stream) const
{
    if (stream.videoCodec.isEmpty())
        return {};
    QString const width = QString::number(stream.size.width());
    QString const height = QString::number(stream.size.height());
    if (stream.frameRate <= 0.0) // A live stream need not say.
        return tr("%1, %2 x %3").arg(stream.videoCodec, width, height);
    return tr("%1, %2 x %3, %4 per second")
        .arg(stream.videoCodec, width, height, locale().toString(stream.frameRate, 'f', 2));
}

QString VideoInformationDialog::soundText(StreamInformation const& stream) const
{
    if (stream.audioCodec.isEmpty())
        return {};
    return tr("%1, %2 Hz, %n channel(s)", nullptr, stream.audioChannels)
        .arg(stream.audioCodec, locale().toString(stream.sampleRate));
}

QString VideoInformationDialog::offsetText(StreamInformation const& stream) const
{
    int const milliseconds = qRound(stream.soundOffset * 1000.0);
    if (!stream.hasSoundOffset)
        return {};
    if (milliseconds == 0)
        return tr("none");
    return milliseconds > 0 ? tr("%1 ms before the picture").arg(milliseconds)
                            : tr("%1 ms after the picture").arg(-milliseconds);
}

void VideoInformationDialog::showStream(StreamInformation const& stream, qint64 bitrate)
{
    bool const isOpen = !stream.transport.isEmpty();
    setLine(_address, stream.address);
    setLine(_transport, isOpen ? stream.transport : tr("No open channel"));
    setLine(_picture, pictureText(stream));
    setLine(_sound, soundText(stream));
    setLine(_pictures,
            isOpen ? tr("%1 shown, %2 dropped")
                         .arg(locale().toString(stream.picturesShown), locale().toString(stream.picturesDropped))
                   : QString());
    setLine(_lost, isOpen ? tr("%1 of the picture, %2 of the sound")
                                .arg(locale().toString(stream.videoLost), locale().toString(stream.audioLost))
                          : QString());
    setLine(_buffer, stream.buffered < 0 ? QString()
                                         : tr("%1 of %2")
                                               .arg(locale().formattedDataSize(stream.buffered),
                                                    locale().formattedDataSize(stream.bufferSize)));
    setLine(_bitrate, bitrate > 0 ? tr("%1 kbit/s").arg(locale().toString(bitrate / 1000)) : QString());
    setLine(_offset, offsetText(stream));
    setLine(
        _time,
        !isOpen ? QString()
        : stream.duration > 0.0
            ? tr("%1 of %2 s").arg(locale().toString(stream.time, 'f', 1), locale().toString(stream.duration, 'f', 1))
            : tr("%1 s").arg(locale().toString(stream.time, 'f', 1)));
}

void VideoInformationDialog::copy()
{
    QStringList lines;
    for (int row = 0; row < _form->rowCount(); ++row) {
        auto const* const value = qobject_cast<ElidedLabel*>(_form->itemAt(row, QFormLayout::FieldRole)->widget());
        if (value)
            lines.append(value->property("name").toString() + ' ' + value->fullText());
    }
    lines.prepend(_stream->currentText());
    QGuiApplication::clipboard()->setText(SupportReport::withoutSecrets(lines.join('\n')));
}
