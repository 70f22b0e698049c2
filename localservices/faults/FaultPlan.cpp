#include "FaultPlan.h"

#include <algorithm>

void FaultPlan::add(QString const& path, Fault const& fault)
{
    QList<Fault>& faults = _faults[path];
    faults.append(fault);
    if (faults.size() > maximumFaults)
        faults.removeFirst();
}

void FaultPlan::clear(QString const& path)
{
    _faults.remove(path);
}

std::optional<Fault> FaultPlan::take(QString const& path, Fault::Step step, std::initializer_list<Fault::Kind> kinds)
{
    for (QString const& name : {path, QStringLiteral("*")}) {
        auto const faults = _faults.find(name);
        if (faults == _faults.end())
            continue;
        auto const awaits = [&](Fault const& fault) {
            return (fault.step == step || fault.step == Fault::Step::Any) &&
                   std::find(kinds.begin(), kinds.end(), fault.kind) != kinds.end();
        };
        auto const found = std::find_if(faults->begin(), faults->end(), awaits);
        if (found == faults->end())
            continue;
        Fault const fault = *found;
        if (found->times > 0 && --found->times == 0)
            faults->erase(found);
        return fault;
    }
    return std::nullopt;
}

QStringList FaultPlan::toText() const
{
    QStringList lines;
    for (auto faults = _faults.cbegin(); faults != _faults.cend(); ++faults) {
        for (Fault const& fault : *faults)
            lines.append(faults.key() + ' ' + fault.toText());
    }
    return lines;
}
