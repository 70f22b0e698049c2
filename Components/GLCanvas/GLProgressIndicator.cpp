#include "GLProgressIndicator.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{
constexpr double seekStep = 10.0;    ///< Seconds.
constexpr double wholeLevel = 100.0; ///< Per cent.
constexpr double levelHeight = 4.0;  ///< Pixels.
constexpr double levelInset = 6.0;   ///< Likewise, as the line of a film has it.
constexpr int secondsPerMinute = 60;
constexpr int secondsPerHour = 3600;
} // namespace

GLProgressIndicator::GLProgressIndicator(QString const& name, GLControlStyle const& style, QObject* parent)
    : GLValueControl(name, style, parent)
{
    setStep(seekStep);
    connect(this, &GLControl::mouseLeft, this, [this] { emit previewChanged(std::nullopt, 0.0); });
}

void GLProgressIndicator::showTime(double seconds, double duration)
{
    setEnabled(true);
    setMaximum(duration);
    setValue(seconds);
}

void GLProgressIndicator::showBuffer(std::optional<double> level)
{
    bool const isOther =
        level.has_value() != _level.has_value() ||
        (level && std::lround(*level * geometry().width()) != std::lround(*_level * geometry().width()));
    _level = level;
    if (isEnabled()) {
        setEnabled(false);
        emit previewChanged(std::nullopt, 0.0);
    } else if (isOther) {
        update();
    }
}

QString GLProgressIndicator::valueText() const
{
    if (isEnabled())
        return tr("%1 of %2").arg(timeText(value()), timeText(maximum()));
    return _level ? tr("Buffer %1 %").arg(qRound(*_level * wholeLevel)) : tr("Live");
}

double GLProgressIndicator::shownValue() const
{
    return isEnabled() ? value() : std::round(_level.value_or(0.0) * wholeLevel);
}

double GLProgressIndicator::shownMaximum() const
{
    return isEnabled() ? maximum() : wholeLevel;
}

QAccessible::Role GLProgressIndicator::role() const
{
    return isEnabled() ? QAccessible::Slider : QAccessible::ProgressBar;
}

void GLProgressIndicator::mouseMove(QPointF point, QMouseEvent* event)
{
    GLValueControl::mouseMove(point, event);
    double const x = point.x() - geometry().left();
    emit previewChanged(valueAt(x), std::clamp(x, 0.0, geometry().width()));
}

QString GLProgressIndicator::timeText(double seconds)
{
    constexpr double longest = 1e8;
    auto const whole = static_cast<int>(std::isnan(seconds) ? 0.0 : std::clamp(seconds, 0.0, longest));
    QString const rest =
        QString("%1:%2")
            .arg(whole % secondsPerHour / secondsPerMinute, whole < secondsPerHour ? 1 : 2, 10, QChar('0'))
            .arg(whole % secondsPerMinute, 2, 10, QChar('0'));
    return whole < secondsPerHour ? rest : QString("%1:%2").arg(whole / secondsPerHour).arg(rest);
}

void GLProgressIndicator::draw(QPainter& painter, QSizeF const& size)
{
    if (isEnabled()) {
        GLValueControl::draw(painter, size);
        return;
    }
    QRectF line(levelInset, (size.height() - levelHeight) / 2.0, std::max(0.0, size.width() - 2.0 * levelInset),
                levelHeight);
    painter.setPen(Qt::NoPen);
    painter.setBrush(style().line);
    painter.drawRoundedRect(line, levelHeight / 2.0, levelHeight / 2.0);
    if (!_level)
        return;
    double const width = line.width() * std::clamp(*_level, 0.0, 1.0);
    if (isMirrored())
        line.setLeft(line.right() - width);
    else
        line.setWidth(width);
    painter.setBrush(style().dimText);
    painter.drawRoundedRect(line, levelHeight / 2.0, levelHeight / 2.0);
}
