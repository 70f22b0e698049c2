#pragma once

#include <QRegularExpression>
#include <QSyntaxHighlighter>
#include <QTextCharFormat>

#include <vector>

/// Colours the shading language of OpenGL: words of the language, types, functions, numbers, directives, comments.
/// The colours suit the ground of the palette, light or dark.
class GlslHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    explicit GlslHighlighter(QTextDocument* document);

    /// After a change of the palette.
    void setDark(bool isDark);

protected:
    void highlightBlock(QString const& text) override;

private:
    enum State { Code = 0, Comment = 1 };
    struct Rule {
        QRegularExpression pattern;
        QTextCharFormat format;
    };

    void highlightComments(QString const& text);

    std::vector<Rule> _rules;
    QTextCharFormat _comment;
};
