#pragma once

#include "OmbravisionDialog.h"
#include "StreamInformation.h"

#include <QElapsedTimer>
#include <QHash>
#include <QList>
#include <QTimer>

class ElidedLabel;
class QComboBox;
class QFormLayout;

/// What an open stream is and how it plays, once a second, while it is seen. Main thread only.
class VideoInformationDialog : public OmbravisionDialog
{
    Q_OBJECT

public:
    static constexpr int interval = 1000; ///< ms

    VideoInformationDialog(AppData& appData, QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    /// Where the bytes of a stream stood at the last look.
    struct Reading {
        quint64 bytes = 0;
        qint64 bitrate = 0; ///< Bits per second between the last two looks.
    };

    ElidedLabel* addLine(QString const& name);
    void refresh();
    void fillStreams(QList<StreamInformation> const& streams);
    void measure(QList<StreamInformation> const& streams);
    void showStream(StreamInformation const& stream, qint64 bitrate);
    void setLine(ElidedLabel* line, QString const& text);
    QString pictureText(StreamInformation const& stream) const;
    QString soundText(StreamInformation const& stream) const;
    QString offsetText(StreamInformation const& stream) const;
    void copy();

    QFormLayout* _form;
    QComboBox* _stream;
    ElidedLabel* _address;
    ElidedLabel* _transport;
    ElidedLabel* _picture;
    ElidedLabel* _sound;
    ElidedLabel* _pictures;
    ElidedLabel* _lost;
    ElidedLabel* _buffer;
    ElidedLabel* _bitrate;
    ElidedLabel* _offset;
    ElidedLabel* _time;
    QTimer _timer;
    QElapsedTimer _sinceLast;
    QHash<QString, Reading> _readings; ///< By what fillStreams() calls them.
};
