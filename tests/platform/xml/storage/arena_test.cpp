#include "platform/runtime/error.h"
#include "platform/xml/dom/handle_access.h"
#include "platform/xml/storage/arena.h"
#include "resources/xml_texts.h"
#include "tests/platform/xml/xml_test_support.h"

#include <random>

namespace quillon::xml::test {

namespace {

const Arena &arenaOf(const DOMDocument40 &document) {
    return HandleAccess::arena(document);
}

/// Going backward gives what going forward does, everywhere below the document.
void expectLinksBothWays(const Arena &arena) {
    const auto expectList = [&](Number first, Number last, Number parent) {
        Number previous = 0;
        for (Number n = first; n != 0; n = arena.record(n).next) {
            ASSERT_EQ(arena.previousSibling(n), previous) << n;
            ASSERT_EQ(arena.record(n).parent, parent) << n;
            previous = n;
        }
        ASSERT_EQ(last, previous) << parent;
    };
    const Number top = arena.documentNumber();
    for (Number n = top; n != 0; n = arena.nextInSubtree(n, top)) {
        if (!arena.hasPart(n))
            continue;
        const ElementPart &part = arena.part(n);
        ASSERT_NO_FATAL_FAILURE(expectList(part.firstChild, part.lastChild, n));
        ASSERT_NO_FATAL_FAILURE(expectList(part.firstAttribute, arena.lastAttribute(n), n));
    }
}

void expectCounted(const Arena &arena) {
    std::uint32_t count = 0;
    for (Number n = arena.documentNumber(); arena.isAlive(n); ++n) {
        ASSERT_EQ(arena.recordsBefore(n), count) << n;
        if (arena.isRecord(n)) {
            ASSERT_EQ(arena.nthRecord(count), n);
            ++count;
        }
    }
    EXPECT_EQ(arena.recordCount(), count);
    EXPECT_EQ(arena.nthRecord(count), 0U);
    EXPECT_EQ(arena.recordsBefore(arena.documentNumber() + arena.slotCount()), count);
}

/// A document, states of it that were kept, and a way to change it.
class RandomDocument {
public:
    explicit RandomDocument(unsigned seed, Number firstNumber = 1)
        : random_(seed), document_(HandleAccess::document(Ref<ArenaBase>(new Arena(firstNumber)))) {
        std::string text = "<r>";
        while (text.size() < 4'000)
            grow(text, 0);
        EXPECT_TRUE(document_.loadXML(q(text + "</r>")));
        other_ = parsed("<o><p k='1' l='2'><q/>t<!--c--></p><s><u/> <u/></s></o>");
    }

    DOMDocument40 &document() { return document_; }
    /// False when there are no numbers left.
    bool change();

private:
    void grow(std::string &text, int depth) {
        switch (below(depth > 6 ? 3 : 6)) {
        case 0:
            text += "t";
            break;
        case 1:
            text += "<!--c-->";
            break;
        case 2:
            text += "\n  <e a='1' b='2' c='3' />";
            break;
        default:
            text += "\n <f d='4'>";
            for (unsigned i = below(5); i > 0; --i)
                grow(text, depth + 1);
            text += "\n </f>";
        }
    }
    unsigned below(unsigned bound) { return unsigned(random_() % bound); }
    /// Any node below the document, from all that ever were.
    Node anyNode(NodeType kind) {
        const Arena &arena = arenaOf(document_);
        for (;;) {
            const Number n = arena.nthRecord(below(arena.recordCount()));
            if (arena.record(n).kind == kind)
                return document_.nodeByNumber(n);
        }
    }
    Node anyElement() { return anyNode(NodeType::Element); }
    Node anyChild(const Node &parent) {
        const int count = parent.childNodes().length();
        return count == 0 ? Node() : parent.childNodes().item(int(below(unsigned(count))));
    }
    Node anythingNew() {
        switch (below(5)) {
        case 0:
            return document_.createElement("n");
        case 1:
            return document_.createTextNode("v");
        case 2:
            return other_.documentElement().cloneNode(true);
        case 3:
            return anyElement().cloneNode(below(2) == 0);
        default:
            return anyElement();
        }
    }

    std::mt19937 random_;
    DOMDocument40 document_;
    DOMDocument40 other_;
};

bool RandomDocument::change() {
    const Node at = anyElement();
    const Node child = anyChild(at);
    try {
        switch (below(9)) {
        case 0:
        case 1:
            at.insertBefore(anythingNew(), child);
            break;
        case 2:
            at.appendChild(anythingNew());
            break;
        case 3:
            if (child && below(3) == 0)
                at.removeChild(child);
            break;
        case 4:
            if (child)
                at.replaceChild(anythingNew(), child);
            break;
        case 5:
            at.setAttribute(q(std::string(1, char('a' + below(6)))), "x");
            break;
        case 6:
            at.removeAttribute(q(std::string(1, char('a' + below(6)))));
            break;
        case 7:
            if (at != document_.documentElement() && below(4) == 0)
                at.rename("m");
            break;
        default:
            at.setText("text");
        }
    } catch (const runtime::Error &error) {
        // Otherwise a node was to be put under itself.
        return error.description() != resources::xml_texts::NumbersUsedUp.toString();
    }
    return true;
}

TEST(Arena, WithoutNumbersNothingIsHarmed) {
    for (unsigned seed = 1; seed <= 3; ++seed) {
        SCOPED_TRACE(seed);
        RandomDocument random(seed, 0xF0000000 - 4'000);
        const quint32 dead = random.document().documentElement().number();
        int failures = 0;
        for (int i = 0; failures < 12; ++i) {
            ASSERT_LT(i, 100'000) << "numbers never run out";
            const std::string before = xml(random.document());
            if (random.change())
                continue;
            ++failures;
            ASSERT_EQ(xml(random.document()), before);
            ASSERT_NO_FATAL_FAILURE(expectLinksBothWays(arenaOf(random.document())));
        }
        const std::string before = xml(random.document());
        EXPECT_THROW(random.document().loadXML(q("<r/>")), runtime::Error);
        EXPECT_EQ(xml(random.document()), before);
        EXPECT_TRUE(random.document().nodeByNumber(dead));
    }
    DOMDocument40 document = HandleAccess::document(Ref<ArenaBase>(new Arena(0xF0000000 - 1'000)));
    for (const char *const type : {"", "<!DOCTYPE r>"}) {
        std::string text = type + std::string("<r>");
        for (int i = 0; i < 2'000; ++i)
            text += "<a/>";
        EXPECT_FALSE(document.loadXML(q(text + "</r>")));
        EXPECT_EQ(document.parseError().reason, resources::xml_texts::NumbersUsedUp.toString());
        EXPECT_EQ(xml(document), "");
        EXPECT_TRUE(document.loadXML(q("<r><a/></r>"))) << "a smaller one";
    }
}

TEST(Arena, NodesAreLinkedBothWaysAfterAnyEdits) {
    for (unsigned seed = 1; seed <= 10; ++seed) {
        SCOPED_TRACE(seed);
        RandomDocument random(seed);
        std::vector<std::pair<DOMDocument40, std::string>> kept;
        for (int i = 0; i < 200; ++i) {
            if (i % 20 == 0)
                kept.emplace_back(random.document().clone(), xml(random.document()));
            random.change();
            ASSERT_NO_FATAL_FAILURE(expectLinksBothWays(arenaOf(random.document()))) << i;
        }
        // The root element may have been moved below one that stands nowhere.
        if (random.document().documentElement()) {
            EXPECT_EQ(xml(random.document()), xml(parsed(xml(random.document()))));
        }
        expectCounted(arenaOf(random.document()));
        for (const auto &[state, text] : kept) {
            ASSERT_NO_FATAL_FAILURE(expectLinksBothWays(arenaOf(state)));
            EXPECT_EQ(xml(state), text);
            expectCounted(arenaOf(state));
        }
    }
}

TEST(Arena, NumbersOfWhatWasReadAreInOrder) {
    DOMDocument40 document = DOMDocument40::create();
    const Arena &arena = arenaOf(document);
    EXPECT_EQ(arena.readEnd(), arena.documentNumber());
    std::string text = "<!DOCTYPE r [<!ATTLIST a d CDATA 'x'>]><r>";
    for (int i = 0; i < 3'000; ++i)
        text += "<a k='1'>t<b/></a>";
    for (int times = 0; times < 2; ++times) {
        ASSERT_TRUE(document.loadXML(q(text + "</r>")));
        const Number top = arena.documentNumber();
        const auto end = Number(top + arena.slotCount());
        EXPECT_EQ(arena.readEnd(), end);
        std::uint32_t rank = 0;
        for (Number n = top; n != 0; n = arena.nextInSubtree(n, top)) {
            ASSERT_EQ(arena.nthRecord(rank++), n);
            Number a = arena.hasPart(n) ? arena.part(n).firstAttribute : 0;
            for (; a != 0; a = arena.record(a).next)
                ASSERT_EQ(arena.nthRecord(rank++), a);
        }
        EXPECT_EQ(arena.recordCount(), rank);
        expectCounted(arena);
        document.documentElement().setAttribute("new", "1");
        EXPECT_EQ(arena.readEnd(), end);
    }
}

/// What was read follows on one another without a gap, down to every layout.
void expectNoGaps(const Arena &arena) {
    const Number top = arena.documentNumber();
    for (Number n = top; n != 0; n = arena.nextInSubtree(n, top)) {
        if (!arena.hasPart(n))
            continue;
        const ElementPart &part = arena.part(n);
        std::uint32_t at = n == top
                               ? 0
                               : arena.record(n).start + 1 +
                                     std::uint32_t(arena.names->utf8(arena.record(n).name).size());
        for (Number a = part.firstAttribute; a != 0; a = arena.record(a).next) {
            ASSERT_EQ(arena.layoutStart(a), at);
            at = arena.sourceEnd(a);
        }
        const std::string_view tagEnd = arena.slice(n, at, part.contentStart);
        ASSERT_EQ(tagEnd.find_first_not_of(" \n/>"), tagEnd.npos);
        at = part.contentStart;
        for (Number c = part.firstChild; c != 0; c = arena.record(c).next) {
            ASSERT_EQ(arena.layoutStart(c), at);
            at = arena.sourceEnd(c);
        }
        ASSERT_EQ(arena.contentEnd(n), at);
    }
}

TEST(Arena, EndsAreFoundWhereTheParserSawThem) {
    const std::string type =
        "<?xml version='1.0' ?>\n<!DOCTYPE r [<!ENTITY e 'x'><!-- ]> --><!ENTITY amp "
        "\"&#38;#38;\">]>\n\n";
    const std::string longText(63, 't');
    const std::string contents[]{"a&amp;b&#x26;c&e;d&e;&e;&lt;<x/>\n<y/>",
                                 "<!--->--> <!--]]>?>--><?p ?a>b?>\t<![CDATA[]]]]>]",
                                 "<a k = \"'>'\"\nl='\"/>' m=''/>\n\t<b\n/>&e; \n",
                                 "t<![CDATA[<]]>&gt;",
                                 longText + "&amp;" + longText + longText + "&quot;&e;" + longText +
                                     "t&e;<x> </x>",
                                 longText + "&e;",
                                 longText + "t"};
    std::string all;
    for (const std::string &content : contents)
        all += content + " <z > " + content + " </z>\r\n";
    for (const bool preserves : {false, true}) {
        DOMDocument40 document = DOMDocument40::create();
        document.setPreserveWhiteSpace(preserves);
        ASSERT_TRUE(
            document.loadXML(QByteArray::fromStdString(type + "<r>" + all + "</r>\n<!--c-->\n")))
            << document.parseError().reason.toStdString() << document.parseError().linepos;
        expectNoGaps(arenaOf(document));
    }
}

} // namespace

} // namespace quillon::xml::test
