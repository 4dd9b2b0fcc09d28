#pragma once

#include "platform/xml/storage/arena.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace quillon::xml {

/// What the document type declares of the content that follows it.
struct InternalSubset {
    /// An attribute that elements have although they do not name it.
    struct Default {
        std::string attribute;
        Ref<OwnText> value;
    };

    /// The entities that have a text of their own.
    std::shared_ptr<EntityTable> entities = std::make_shared<EntityTable>();
    /// Others that may stand in content, and those that may not.
    std::set<std::string, std::less<>> externalEntities;
    std::set<std::string, std::less<>> unparsedEntities;
    /// By the names of elements, in the order of their declarations.
    std::map<std::string, std::vector<Default>, std::less<>> defaults;
    /// Whether an entity that is not declared here may be declared in a file that is not read.
    bool hasExternalPart = false;
};

/// Whether entities refer to one another so deep that the parser, which follows such chains
/// recursively, must not see the references to them.
bool entitiesNestTooDeep(const EntityTable &entities);

} // namespace quillon::xml
