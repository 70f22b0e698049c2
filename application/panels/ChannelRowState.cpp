#include "ChannelRowState.h"

#include <utility>

QString ChannelRowStates::text(ChannelRowState state)
{
    switch (state) {
    case ChannelRowState::Playing:
        return tr("Playing");
    case ChannelRowState::Previewing:
        return tr("Previewing");
    case ChannelRowState::Open:
        return tr("Open");
    case ChannelRowState::Acquiring:
        return tr("Acquiring");
    case ChannelRowState::Failed:
        return tr("Failed");
    case ChannelRowState::Closed:
        break;
    }
    return {};
}

QColor ChannelRowStates::colour(ChannelRowState state, QPalette const& palette)
{
    bool const isDark = palette.color(QPalette::Base).lightness() < 128;
    switch (state) {
    case ChannelRowState::Playing:
        return isDark ? QColor(102, 214, 132) : QColor(22, 122, 56);
    case ChannelRowState::Previewing:
        return isDark ? QColor(200, 160, 255) : QColor(112, 56, 184);
    case ChannelRowState::Open:
        return isDark ? QColor(120, 186, 255) : QColor(20, 96, 190);
    case ChannelRowState::Acquiring:
        return isDark ? QColor(255, 200, 92) : QColor(158, 96, 0);
    case ChannelRowState::Failed:
        return isDark ? QColor(255, 138, 128) : QColor(186, 26, 26);
    case ChannelRowState::Closed:
        break;
    }
    return Qt::transparent;
}

ChannelRowState ChannelRowStates::of(QString const& id) const
{
    auto const found = _open.constFind(id);
    if (found == _open.constEnd())
        return ChannelRowState::Closed;
    if (*found == Health::Failed)
        return ChannelRowState::Failed;
    if (*found == Health::Acquiring)
        return ChannelRowState::Acquiring;
    if (id != _active)
        return ChannelRowState::Open;
    return id == _preview ? ChannelRowState::Previewing : ChannelRowState::Playing;
}

void ChannelRowStates::open(QString const& id)
{
    _open.insert(id, Health::Acquiring);
    emit changed(id);
}

void ChannelRowStates::close(QString const& id)
{
    _open.remove(id);
    if (_preview == id)
        _preview.clear();
    emit changed(id);
}

void ChannelRowStates::setActive(QString const& id)
{
    QString const before = std::exchange(_active, id);
    emit changed(before);
    emit changed(id);
}

void ChannelRowStates::setPreview(QString const& id)
{
    _preview = id;
    emit changed(_active);
    emit changed(id);
}

void ChannelRowStates::setState(QString const& id, ChannelRowState state)
{
    auto const found = _open.find(id);
    if (found == _open.end())
        return;
    if (state == ChannelRowState::Acquiring)
        *found = Health::Acquiring;
    else
        *found = state == ChannelRowState::Failed ? Health::Failed : Health::Playing;
    emit changed(id);
}
