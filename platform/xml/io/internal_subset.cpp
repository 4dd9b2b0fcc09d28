#include "platform/xml/io/internal_subset.h"

#include <algorithm>

namespace quillon::xml {

namespace {

constexpr int MaxEntityDepth = 100;

} // namespace

bool entitiesNestTooDeep(const EntityTable &entities) {
    // Peels off, round by round, the entities that refer to none that is left. What is left after
    // the permitted number of rounds nests too deep, or in a loop; loops are left to the parser.
    std::map<std::string_view, std::set<std::string_view>> open;
    for (const auto &[name, value] : entities) {
        for (std::size_t at = 0; (at = value.find('&', at)) != std::string::npos; ++at) {
            const std::size_t end = value.find(';', at);
            if (end == std::string::npos)
                break;
            const auto target = entities.find(std::string_view(value).substr(at + 1, end - at - 1));
            if (target != entities.end())
                open[name].insert(target->first);
        }
    }
    for (int round = 0; round < MaxEntityDepth && !open.empty(); ++round) {
        std::vector<std::string_view> done;
        for (const auto &[name, targets] : open) {
            if (std::none_of(targets.begin(), targets.end(),
                             [&](std::string_view target) { return open.count(target) != 0; }))
                done.push_back(name);
        }
        if (done.empty())
            return open.size() > static_cast<std::size_t>(MaxEntityDepth);
        for (const std::string_view name : done)
            open.erase(name);
    }
    return !open.empty();
}

} // namespace quillon::xml
