#pragma once

/// Stands between this program and the system's name lookup: names under ".invalid" are unknown at once, without a
/// name server, and "slow.invalid" only when it is told.
class NameLookup
{
public:
    /// Holds up lookups of "slow.invalid" while it lives.
    NameLookup();
    ~NameLookup();
    NameLookup(NameLookup const&) = delete;
    NameLookup& operator=(NameLookup const&) = delete;

    /// Lookups that are held up now.
    int waiting() const;
};
