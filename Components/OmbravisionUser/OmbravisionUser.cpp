#include "OmbravisionUser.h"

OmbravisionUserGroup OmbravisionUser::firstGroupWithTitle(QString const& title) const
{
    for (OmbravisionUserGroup const& group : _groups)
        if (group.name() == title)
            return group;
    return {};
}

OmbravisionUserRole OmbravisionUser::firstRoleWithTitle(QString const& title) const
{
    for (OmbravisionUserRole const& role : _roles)
        if (role.title() == title)
            return role;
    return {};
}
