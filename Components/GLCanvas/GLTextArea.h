#pragma once

#include "GLControl.h"
#include "GLTexture.h"

#include <QColor>
#include <QFont>
#include <QStringList>

/// A control that shows text, broken into lines that fit its width, outlined and on a backing so that it can be read
/// over video. What does not fit its height ends in an ellipsis.
class GLTextArea : public GLControl
{
    Q_OBJECT

public:
    explicit GLTextArea(QString const& name, QObject* parent = nullptr);
    ~GLTextArea() override;

    /// "\n" begins a new line.
    void setText(QString const& text);
    QString text() const { return _text; }
    void setFont(QFont const& font);
    void setTextColour(QColor const& colour);
    void setBackgroundColour(QColor const& colour);
    void setAlignment(Qt::Alignment alignment);

    /// The size in pixels that the text needs when its lines may be so wide, backing included; empty without text.
    QSizeF sizeForWidth(double width) const;

    using GLControl::render;
    /// Paints the text first where it has changed. An empty text draws nothing.
    void render(double opacity) override;
    void recalcLayout(double scale) override;

    /// Breaks a text at words, or inside a word that is too long by itself, into lines of at most `width` pixels.
    static QStringList wrapText(QString const& text, QFont const& font, double width);

private:
    /// The same, and how wide the widest of the lines is, if that is more.
    static QStringList wrap(QString const& text, QFont const& font, double width, double& widest);
    QFont scaledFont() const;
    void updateTexture();

    static constexpr double margin = 8.0;       ///< Pixels between the backing's edge and the text.
    static constexpr double outlineWidth = 1.5; ///< Pixels.
    static constexpr double cornerRadius = 6.0; ///< Pixels.

    QString _text;
    QFont _font;
    QColor _textColour = Qt::white;
    QColor _backgroundColour = QColor(0, 0, 0, 110);
    Qt::Alignment _alignment = Qt::AlignCenter;
    double _scale = 1.0;
    GLTexture _textTexture;
    QSizeF _paintedSize; ///< The size the texture was painted for.
    bool _changed = true;
};
