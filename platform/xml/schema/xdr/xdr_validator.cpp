#include "platform/xml/schema/xdr/xdr_validator.h"

#include "platform/xml/schema/xdr/xdr_validation_walk.h"

namespace quillon::xdr {

void Validator::addSchema(const QString &namespaceName, const xml::DOMDocument40 &schema) {
    schemas_.add(namespaceName, namespaceName, schema.documentElement());
}

std::vector<xml::SchemaError> Validator::validate(const xml::DOMDocument40 &document) {
    ValidationWalk walk(document, schemas_);
    xml::visitSubtree(document.documentElement(), walk);
    return walk.finish();
}

} // namespace quillon::xdr
