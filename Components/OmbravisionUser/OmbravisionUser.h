#pragma once

#include "OmbravisionUserGroup.h"
#include "OmbravisionUserRole.h"

#include <QList>
#include <QMetaType>
#include <QString>

/// Who is signed in, as a copyable value.
class OmbravisionUser
{
public:
    /// Nobody.
    OmbravisionUser() = default;
    OmbravisionUser(QString const& id, QString const& email, QString const& nodeId)
        : _id(id), _email(email), _nodeId(nodeId)
    {
    }

    static OmbravisionUser Null() { return {}; }
    bool isNull() const { return _id.isEmpty() && _email.isEmpty(); }

    QString id() const { return _id; }
    void setId(QString const& id) { _id = id; }
    QString email() const { return _email; }
    void setEmail(QString const& email) { _email = email; }

    /// What the service knows this user on this machine by.
    QString nodeId() const { return _nodeId; }
    void setNodeId(QString const& nodeId) { _nodeId = nodeId; }

    QList<OmbravisionUserGroup> const& groups() const { return _groups; }
    void addGroup(OmbravisionUserGroup const& group) { _groups.append(group); }
    bool hasGroupWithTitle(QString const& title) const { return !firstGroupWithTitle(title).isNull(); }

    /// The first group of that name, or the null one.
    OmbravisionUserGroup firstGroupWithTitle(QString const& title) const;

    QList<OmbravisionUserRole> const& roles() const { return _roles; }
    void addRole(OmbravisionUserRole const& role) { _roles.append(role); }
    bool hasRoleWithTitle(QString const& title) const { return !firstRoleWithTitle(title).isNull(); }

    /// The first role of that title, or the null one.
    OmbravisionUserRole firstRoleWithTitle(QString const& title) const;

    bool operator==(OmbravisionUser const& other) const = default;

private:
    QString _id;
    QString _email;
    QString _nodeId;
    QList<OmbravisionUserGroup> _groups;
    QList<OmbravisionUserRole> _roles;
};

Q_DECLARE_METATYPE(OmbravisionUser)
