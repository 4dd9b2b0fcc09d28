#include "fuzz/fuzz_support.h"
#include "platform/xml/dom/dom.h"
#include "platform/xml/schema/schematron/schematron_stylesheet.h"

using namespace quillon;
using namespace quillon::fuzz;

/// A Schematron schema is refused with a reason, or becomes a stylesheet that is XML and in which
/// every check has its place.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const ScratchFile schema;
    schema.write(bytesOf(data, size));
    succeeds([&] {
        for (const QString &phase : {QString(), QStringLiteral("#ALL")}) {
            const schematron::Schema read = schematron::readSchematron(schema.path(), {}, phase);
            const schematron::SchemaStylesheet stylesheet = schematron::stylesheetFor(read);
            std::size_t checks = 0;
            for (const schematron::Pattern &pattern : read.patterns) {
                for (const schematron::Rule &rule : pattern.rules)
                    checks += rule.checks.size();
            }
            require(stylesheet.checks.size() == checks, "each check is in the stylesheet");
            const auto lines = static_cast<int>(stylesheet.text.count('\n'));
            for (const auto &[line, place] : stylesheet.places)
                require(line >= 1 && line <= lines, "a place is one of the stylesheet's lines");
            xml::DOMDocument40 document = xml::DOMDocument40::create();
            // A prefix need not be a name; the processor says so.
            if (read.namespaces.empty())
                require(document.loadXML(stylesheet.text), "the stylesheet is XML");
        }
    });
    return 0;
}
