#include "fuzz/fuzz_support.h"
#include "platform/xml/schema/xdr/xdr_validator.h"

using namespace quillon;
using namespace quillon::fuzz;

namespace {

std::vector<xml::SchemaError> errorsOf(const xml::DOMDocument40 &schema,
                                       const xml::DOMDocument40 &document) {
    xdr::Validator validator{QStringList()};
    validator.addSchema(QString(), schema);
    return validator.validate(document);
}

} // namespace

/// An XDR schema and, behind it, a document: the schema is refused with a reason or validates, and
/// gives the same errors when it is asked again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const TwoParts parts(bytesOf(data, size));
    xml::DOMDocument40 schema = xml::DOMDocument40::create();
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    if (!schema.loadXML(toQByteArray(parts.first)) || !document.loadXML(toQByteArray(parts.second)))
        return 0;
    const QByteArray before = document.xml();
    succeeds([&] {
        const std::vector<xml::SchemaError> errors = errorsOf(schema, document);
        require(errors.size() <= std::size_t(xml::MaxSchemaErrors) + 1, "errors have a bound");
        for (const xml::SchemaError &error : errors)
            require(!error.reason.isEmpty(), "an error has a reason");
        require(errorsOf(schema, document).size() == errors.size(), "validating repeats itself");
    });
    require(document.xml() == before, "validating changes nothing");
    return 0;
}
