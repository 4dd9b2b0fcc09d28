#include "bench/dom_bench.h"

#include "bench/report.h"
#include "platform/xml/dom/dom.h"
#include "platform/xml/dom/pretty_print.h"

#include <cstring>
#include <expat.h>
#include <fstream>
#include <libxml/parser.h>
#include <memory>
#include <sstream>

namespace quillon::bench {

namespace {

bool parseWithExpat(const std::string &bytes) {
    XML_Parser parser = XML_ParserCreate("UTF-8");
    XML_SetElementHandler(
        parser, [](void *, const char *, const char **) {}, [](void *, const char *) {});
    XML_SetCharacterDataHandler(parser, [](void *, const char *, int) {});
    const XML_Status status = XML_Parse(parser, bytes.data(), static_cast<int>(bytes.size()), 1);
    XML_ParserFree(parser);
    return status == XML_STATUS_OK;
}

bool parseWithLibxml(const std::string &bytes) {
    xmlDoc *const doc = xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr,
                                      nullptr, XML_PARSE_HUGE);
    xmlFreeDoc(doc);
    return doc != nullptr;
}

/// Every line of the document is to be indented otherwise.
void measureLayout(Table &table, const xml::DOMDocument40 &document) {
    xml::LayoutStyle style;
    style.step = "\t";
    xml::LayoutPlan plan;
    const double planned = bestOf(3, [&] {
        plan = xml::planLayout(document.node(), style);
        return !plan.isEmpty();
    });
    xml::DOMDocument40 copy;
    const double made = bestOf(
        3, [&] { xml::applyLayout(copy.node(), plan); }, [&] { copy = document.clone(); });
    table.row("plan another layout of all of it", planned, "ms", 0);
    table.row("carry that out", made, "ms", 0);
}

} // namespace

void measureDom(Table &table, const std::string &path, bool limited) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    const std::string bytes = content.str();
    constexpr int Runs = 5;

    const double expat = bestOf(Runs, [&] { return parseWithExpat(bytes); });
    const double libxml = bestOf(Runs, [&] { return parseWithLibxml(bytes); });
    xml::DOMDocument40 document;
    const double ours = bestOf(
        Runs, [&] { return document.load(QString::fromStdString(path)); },
        [&] { document = xml::DOMDocument40::create(); });
    table.row("parse with expat, empty handlers", expat, "ms", 0);
    table.row("parse into libxml2's tree", libxml, "ms", 0);
    table.row("read the file and parse it into our DOM", ours, "ms", 0);
    table.row("  / expat", ours / expat, "x", limited ? 0.8 : 0);
    table.row("  / libxml2's tree", ours / libxml, "x", limited ? 0.8 : 0);

    // Without a document there is nothing else to measure.
    document = xml::DOMDocument40::create();
    if (!document.load(QString::fromStdString(path)))
        return table.failedRow("open the document in our DOM");
    xml::DOMDocument40 snapshot;
    table.row("snapshot of the whole document", bestOf(Runs, [&] { snapshot = document.clone(); }),
              "ms", 2);
    int count = 0;
    const xml::Node record = document.documentElement().firstChild();
    table.row("change after a snapshot, with the next snapshot",
              bestOf(Runs,
                     [&] {
                         record.setAttribute(QStringLiteral("id"), QString::number(++count));
                         snapshot = document.clone();
                     }),
              "ms", 2);

    document = xml::DOMDocument40::create();
    document.load(QString::fromStdString(path));
    std::unique_ptr<char[]> copy;
    const double memory = bestOf(Runs, [&] {
        copy.reset(new char[bytes.size()]);
        std::memcpy(copy.get(), bytes.data(), bytes.size());
    });
    const double untouched = bestOf(Runs, [&] { document.serialize(); });
    document.documentElement().firstChild().setAttribute(QStringLiteral("id"), QStringLiteral("x"));
    const double changed = bestOf(Runs, [&] { document.serialize(); });
    table.row("copy the bytes", memory, "ms", 0);
    table.row("serialise the untouched document", untouched, "ms", 0);
    table.row("  / copying", untouched / memory, "x", limited ? 10 : 0);
    table.row("serialise with one change near the top / copying", changed / memory, "x", 0);
    measureLayout(table, document);
}

} // namespace quillon::bench
