#pragma once

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QStringView>

/// What request and response headers of HTTP share: lines of a name and a value, kept in order and with repetitions.
/// Names are compared without regard to case. Text is Latin-1, so that every byte that came comes back.
class HttpHeader
{
public:
    virtual ~HttpHeader() = default;

    /// Sets the first line of that name, or appends a line.
    void setValue(QString const& key, QString const& value);
    void setValues(QList<QPair<QString, QString>> const& values);

    /// Appends a line, whether or not there are others of that name.
    void addValue(QString const& key, QString const& value);

    /// All lines, in order.
    QList<QPair<QString, QString>> values() const { return _values; }

    bool hasKey(QString const& key) const;

    /// The names, each once, as first written.
    QStringList keys() const;

    /// The value of the first line of that name, or the empty text.
    QString value(QString const& key) const;

    /// The values of all lines of that name, in order.
    QStringList allValues(QString const& key) const;

    /// Removes the first line of that name.
    void removeValue(QString const& key);

    /// Removes all lines of that name.
    void removeAllValues(QString const& key);

    bool hasContentLength() const;

    /// Bytes of the body; 0 when there is no such line or none that is a number.
    qint64 contentLength() const;
    void setContentLength(qint64 length);

    bool hasContentType() const;

    /// The media type without its parameters.
    QString contentType() const;
    void setContentType(QString const& type);

    /// The whole header as it goes over the wire, its empty line included; empty when it is not valid.
    QString toString() const;

    /// Whether there is a first line, and the header was not read from a text that is none.
    bool isValid() const { return _valid; }

    virtual int majorVersion() const = 0;
    virtual int minorVersion() const = 0;

    bool operator==(HttpHeader const&) const = default;

protected:
    HttpHeader() = default;
    HttpHeader(HttpHeader const&) = default;
    HttpHeader(HttpHeader&&) = default;
    HttpHeader& operator=(HttpHeader const&) = default;
    HttpHeader& operator=(HttpHeader&&) = default;

    /// Reads a whole header; afterwards isValid() tells whether it was one. Folded lines are joined by a space.
    void parse(QString const& text);

    virtual bool parseFirstLine(QStringView line) = 0;
    virtual QString firstLine() const = 0;
    void setValid(bool valid) { _valid = valid; }

    /// Reads "HTTP/1.1"; whether it is one.
    static bool parseVersion(QStringView text, int& major, int& minor);

    /// The text without the spaces and tabs around it, and nothing else that Unicode takes for space.
    static QStringView trimmed(QStringView text);

private:
    bool parseLine(QStringView line);

    QList<QPair<QString, QString>> _values;
    bool _valid = false;
};
