#include "links/name_pairs.h"

#include "entities/key_grammar.h"
#include "platform/text.h"

namespace orvent::links {

namespace {

/// The name behind what stands there for its owner.
std::string withoutOwner(const std::string& whole, const std::string& owner) {
    const std::string name = entities::AfterLastDot(whole);
    const std::size_t length = owner.size();
    const bool stands = !owner.empty() && name.size() > length + 1 && name[length] == '_' &&
                        platform::equalIgnoringCase(name.substr(0, length), owner);
    return stands ? name.substr(length + 1) : name;
}

std::string fold(const std::string& name) {
    std::string folded = platform::lowerCase(name);
    std::erase(folded, '_');
    return folded;
}

}  // namespace

NameMatch matchOf(const NamedEnd& source, const NamedEnd& target) {
    if (source.name == target.name) {
        return NameMatch::equal;
    }
    const std::string from = withoutOwner(source.name, source.owner);
    const std::string to = withoutOwner(target.name, source.owner);
    return from == to ? NameMatch::withoutOwner : fold(from) == fold(to) ? NameMatch::folded : NameMatch::none;
}

std::vector<NamePair> pairsByName(const std::vector<NamedEnd>& sources, const std::vector<NamedEnd>& targets,
                                  const std::function<bool(std::size_t, std::size_t)>& mayJoin) {
    std::vector<NamePair> pairs;
    for (std::size_t target = 0; target < targets.size(); ++target) {
        const std::size_t first = pairs.size();
        NameMatch best = NameMatch::none;
        for (std::size_t source = 0; source < sources.size(); ++source) {
            const NameMatch match = matchOf(sources[source], targets[target]);
            if (match == NameMatch::none || match > best || !mayJoin(source, target)) {
                continue;
            }
            if (match < best) {
                pairs.resize(first);
                best = match;
            }
            pairs.push_back({source, target});
        }
        for (std::size_t at = first; at < pairs.size(); ++at) {
            pairs[at].only = pairs.size() == first + 1;
        }
    }
    return pairs;
}

}  // namespace orvent::links
