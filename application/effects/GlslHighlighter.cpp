#include "GlslHighlighter.h"

namespace
{

constexpr char const* glslKeywords =
    "\\b(?:attribute|const|uniform|varying|centroid|break|continue|do|for|while|if|else|in|"
    "out|inout|true|false|lowp|mediump|highp|precision|invariant|discard|return|struct)\\b";
constexpr char const* glslTypes =
    "\\b(?:void|bool|int|float|[bi]?vec[234]|mat[234](?:x[234])?|sampler[123]D|samplerCube|"
    "sampler[12]DShadow)\\b";
constexpr char const* glslFunctions =
    "\\b(?:radians|degrees|a?sin|a?cos|a?tan|pow|exp2?|log2?|sqrt|inversesqrt|abs|sign|floor|ceil|fract|mod|min|max|"
    "clamp|mix|step|smoothstep|length|distance|dot|cross|normalize|faceforward|reflect|refract|matrixCompMult|"
    "lessThan(?:Equal)?|greaterThan(?:Equal)?|(?:notE|e)qual|any|all|not|texture[123]D(?:Proj|Lod)?|dFd[xy]|fwidth|"
    "gl_\\w+|tex0(?:Dimensions|TexelDimensions)?|time|random)\\b";
constexpr char const* glslNumbers = "\\b(?:0x[0-9A-Fa-f]+|\\d+\\.?\\d*(?:[eE][+-]?\\d+)?)\\b|\\.\\d+\\b";

} // namespace

GlslHighlighter::GlslHighlighter(QTextDocument* document) : QSyntaxHighlighter(document)
{
    setDark(false);
}

void GlslHighlighter::setDark(bool isDark)
{
    struct Colours {
        char const* pattern;
        QColor light;
        QColor dark;
        bool isBold;
    };
    Colours const colours[] = {
        {glslFunctions, QColor(0x0b, 0x5c, 0x8a), QColor(0x7f, 0xc8, 0xf0), false},
        {glslTypes, QColor(0x1b, 0x6e, 0x37), QColor(0x8a, 0xd8, 0xa0), false},
        {glslKeywords, QColor(0x7a, 0x28, 0x8a), QColor(0xd8, 0xa0, 0xe8), true},
        {glslNumbers, QColor(0x8a, 0x4a, 0x00), QColor(0xff, 0xbe, 0x78), false},
        {"^\\s*#.*$", QColor(0x8a, 0x1f, 0x3c), QColor(0xf2, 0x9a, 0xb2), false},
    };
    _rules.clear();
    for (Colours const& colour : colours) {
        QTextCharFormat format;
        format.setForeground(isDark ? colour.dark : colour.light);
        if (colour.isBold)
            format.setFontWeight(QFont::Bold);
        _rules.push_back({QRegularExpression(colour.pattern), format});
    }
    _comment.setForeground(isDark ? QColor(0xa8, 0xac, 0xb4) : QColor(0x5c, 0x60, 0x68));
    _comment.setFontItalic(true);
    rehighlight();
}

void GlslHighlighter::highlightBlock(QString const& text)
{
    for (Rule const& rule : _rules) {
        auto matches = rule.pattern.globalMatch(text);
        while (matches.hasNext()) {
            QRegularExpressionMatch const match = matches.next();
            setFormat(static_cast<int>(match.capturedStart()), static_cast<int>(match.capturedLength()), rule.format);
        }
    }
    highlightComments(text);
}

void GlslHighlighter::highlightComments(QString const& text)
{
    setCurrentBlockState(Code);
    qsizetype at = 0;
    bool isComment = previousBlockState() == Comment;
    while (at < text.size()) {
        qsizetype const begin = isComment ? at : text.indexOf('/', at);
        if (begin < 0)
            return;
        if (!isComment && text.mid(begin, 2) == QLatin1String("//")) {
            setFormat(static_cast<int>(begin), static_cast<int>(text.size() - begin), _comment);
            return;
        }
        if (!isComment && text.mid(begin, 2) != QLatin1String("/*")) {
            at = begin + 1;
            continue;
        }
        qsizetype const found = text.indexOf(QLatin1String("*/"), isComment ? begin : begin + 2);
        qsizetype const end = found < 0 ? text.size() : found + 2;
        setFormat(static_cast<int>(begin), static_cast<int>(end - begin), _comment);
        if (found < 0) {
            setCurrentBlockState(Comment);
            return;
        }
        isComment = false;
        at = end;
    }
    if (isComment && text.isEmpty())
        setCurrentBlockState(Comment);
}
