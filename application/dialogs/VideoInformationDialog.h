#pragma once

#include "OmbravisionDialog.h"
#include "StreamInformation.h"

#include <QElapsedTimer>
#include <QHash>
#include <QList>
#include <QTimer>

class QComboBox;
class QFormLayout;
class QLabel;

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

    QLabel* addLine(QString const& name);
    void refresh();
    void fillStreams(QList<StreamInformation> const& streams);
    void measure(QList<StreamInformation> const& streams);
    void showStream(StreamInformation const& stream, qint64 bitrate);
    void setLine(QLabel* line, QString const& text);
    QString pictureText(StreamInformation const& stream) const;
    QString soundText(StreamInformation const& stream) const;
    QString offsetText(StreamInformation const& stream) const;
    void copy();

    QFormLayout* _form;
    QComboBox* _stream;
    QLabel* _address;
    QLabel* _transport;
    QLabel* _picture;
    QLabel* _sound;
    QLabel* _pictures;
    QLabel* _lost;
    QLabel* _buffer;
    QLabel* _bitrate;
    QLabel* _offset;
    QLabel* _time;
    QTimer _timer;
    QElapsedTimer _sinceLast;
    QHash<QString, Reading> _readings; ///< By what fillStreams() calls them.
};
