#include "fuzz/fuzz_support.h"
#include "platform/xml/schema/grammar/attribute_choices.h"
#include "platform/xml/schema/grammar/content_matcher.h"
#include "platform/xml/schema/grammar/document_names.h"
#include "platform/xml/schema/grammar/grammar_bytes.h"
#include "platform/xml/schema/grammar/load_grammar.h"
#include "platform/xml/schema/grammar/relaxng_compact.h"
#include "platform/xml/schema/grammar/value_check.h"

using namespace quillon;
using namespace quillon::fuzz;
using namespace quillon::grammar;

namespace {

/// What is asked of a grammar about one element.
class Questions {
public:
    explicit Questions(const Grammar &grammar)
        : grammar_(grammar), matcher_(grammar), values_(grammar) {}

    void ask(const xml::Node &element) {
        const KnownElement known = knownElement(grammar_, element);
        if (known.type == None)
            return;
        const NamedChildren children = namedChildren(grammar_, element);
        const ContentRun run = matcher_.run(known.type, children.names);
        require(run.isValid() == run.faults().empty(), "what has no fault is valid");
        std::size_t last = 0;
        for (const ContentFault &fault : run.faults()) {
            require(fault.child >= last && fault.child <= children.names.size(),
                    "faults come in the order of the children");
            last = fault.child;
        }
        for (std::size_t place = 0; place <= children.names.size(); ++place) {
            for (const Candidate &candidate : run.insertable(place).elements)
                require(candidate.element < grammar_.data().elements.size(), "an element is one");
            if (place < children.names.size())
                run.replaceable(place);
        }
        matcher_.completion(known.type, children.names);
        const NamedAttributes attributes = namedAttributes(grammar_, element);
        for (const AttributeChoice &choice :
             attributeChoices(grammar_, known.type, attributes.names).attributes) {
            if (choice.present < 0)
                continue;
            const auto present = static_cast<std::size_t>(choice.present);
            say(values_.check(*choice.attribute, attributes.nodes[present].nodeValue()));
        }
        if (known.element != None)
            say(values_.check(grammar_.element(known.element), known.type, element.text()));
    }

private:
    static void say(const ValueVerdict &verdict) {
        require((verdict.fit == ValueFit::DoesNotFit) == !verdict.reason.isEmpty(),
                "a value that does not fit has a reason");
    }

    const Grammar &grammar_;
    ContentMatcher matcher_;
    ValueChecker values_;
};

} // namespace

/// A schema of any language and, behind it, a document: the schema is refused with a reason, or is
/// as sound data as what comes out of a child, and can be asked about everything in the document.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const TwoParts parts(bytesOf(data, size));
    static const ScratchFile schema;
    // What is no XML may be the one language that is none.
    if (const QByteArray text = toQByteArray(parts.first); mayBeCompactRelaxNg(text)) {
        QByteArray converted;
        if (!succeeds([&] { converted = relaxNgFromCompact(text, QStringLiteral("input")); }))
            return 0;
        require(!mayBeCompactRelaxNg(converted), "the compact syntax becomes XML");
        schema.write({converted.constData(), std::size_t(converted.size())});
    } else {
        schema.write(parts.first);
    }
    std::optional<Data> read;
    succeeds([&] { read = readGrammar({.path = schema.path()}); });
    if (!read)
        return 0;
    const QByteArray bytes = toBytes(*read);
    std::optional<Data> back = fromBytes(bytes);
    require(back.has_value(), "what a reader makes is sound");
    require(toBytes(*back) == bytes, "data come back as they were");
    const Grammar grammar(std::move(*back));
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    if (!document.loadXML(toQByteArray(parts.second)))
        return 0;
    constexpr int MaxElements = 100;
    Questions questions(grammar);
    int asked = 0;
    for (quint32 number = 1; number < document.maxNodeCount() && asked < MaxElements; ++number) {
        const xml::Node node = document.nodeByNumber(number);
        if (node.nodeType() != xml::NodeType::Element)
            continue;
        questions.ask(node);
        ++asked;
    }
    return 0;
}
