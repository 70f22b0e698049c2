#pragma once

#include "PlaylistItem.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QVector>

class Logger;

/// A document that lists the addresses of streams. Lives on any one thread.
class Playlist : public QObject
{
    Q_OBJECT

public:
    /// A longer document is refused.
    static constexpr qsizetype maximumLength = qsizetype(1) << 20;

    /// Entries beyond this number are left out.
    static constexpr qsizetype maximumItems = 1000;

    explicit Playlist(QString const& text, QObject* parent = nullptr);

    /// The text of a document that a server sent: UTF-16 and UTF-8 by their byte order marks or by the looks of the
    /// bytes, and Windows-1252 for what is neither.
    static QString decode(QByteArray const& document);

    /// Whether an address is one of a picture, by the end of its text: "gif", "ani", "cur" or "ico" in any case.
    static bool isFiltered(QString const& address);

    /// Reads the text, anew if called again. What cannot be read leaves items() empty and a line in the log.
    virtual void parse() = 0;

    QString text() const { return _text; }
    QVector<PlaylistItem> items() const { return _items; }

protected:
    /// Adds an entry and logs it; one too many is left out.
    void addItem(PlaylistItem const& item);
    void clearItems() { _items.clear(); }

    static Logger* log;

private:
    QString const _text;
    QVector<PlaylistItem> _items;
};
