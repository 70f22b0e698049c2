#pragma once

#include <QMetaType>
#include <QString>

/// The version of a protocol or of a message format, as a copyable value.
class CentralisedBiscottiVersion
{
public:
    /// The null version, 0.0.
    CentralisedBiscottiVersion() = default;
    CentralisedBiscottiVersion(int majorVersion, int minorVersion)
        : _majorVersion(majorVersion), _minorVersion(minorVersion)
    {
    }

    static CentralisedBiscottiVersion Null() { return {}; }

    bool isNull() const { return *this == Null(); }
    int majorVersion() const { return _majorVersion; }
    int minorVersion() const { return _minorVersion; }

    /// Major and minor, as in "1.0".
    QString toString() const { return QString::number(_majorVersion) + u'.' + QString::number(_minorVersion); }

    /// Whether both sides understand each other: the minor number is free.
    bool isCompatible(CentralisedBiscottiVersion const& other) const { return _majorVersion == other._majorVersion; }

    bool operator==(CentralisedBiscottiVersion const& other) const = default;

private:
    int _majorVersion = 0;
    int _minorVersion = 0;
};

Q_DECLARE_METATYPE(CentralisedBiscottiVersion)
inline int const centralisedBiscottiVersionMetaType =
    qRegisterMetaType<CentralisedBiscottiVersion>("CentralisedBiscottiVersion");
