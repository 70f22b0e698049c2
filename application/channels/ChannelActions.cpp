#include "ChannelActions.h"

#include "Channel.h"
#include "ChannelAction.h"

#include <QActionGroup>

ChannelActions::ChannelActions(QObject* parent) : QObject(parent), _group(std::make_unique<QActionGroup>(nullptr))
{
    _group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
}

ChannelActions::~ChannelActions() = default;

void ChannelActions::create(Channel* channel)
{
    if (_actions.contains(channel))
        return;
    auto* const action = new ChannelAction(channel, _group.get());
    _group->addAction(action);
    _actions.insert(channel, action);
    connect(action, &ChannelAction::channelClicked, this, &ChannelActions::channelClicked);
}

void ChannelActions::destroy(Channel* channel)
{
    delete _actions.take(channel);
}

void ChannelActions::clear()
{
    qDeleteAll(_actions);
    _actions.clear();
}

void ChannelActions::update(Channel* channel)
{
    if (ChannelAction* const found = action(channel))
        found->update();
}

void ChannelActions::setActive(Channel* channel)
{
    if (QAction* const marked = _group->checkedAction())
        marked->setChecked(false);
    if (ChannelAction* const found = action(channel))
        found->setChecked(true);
}
