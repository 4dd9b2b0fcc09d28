#include "bench/candidate_bench.h"

#include "app/main_window/frm_main.h"
#include "bench/report.h"
#include "platform/xml/schema/grammar/load_grammar.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

namespace quillon::bench {

namespace {

/// One for order records, with many other elements that may stand beside them.
QByteArray orderSchema(qsizetype bytes) {
    QByteArray others, declared;
    for (int i = 0; declared.size() + others.size() < bytes; ++i) {
        const QByteArray number = QByteArray::number(i);
        // As in schemas that there are, a choice has some hundred alternatives, not all there are.
        if (i < 300)
            others += "<xs:element ref='e" + number + "'/>";
        declared += "<xs:element name='e" + number +
                    "'><xs:annotation><xs:documentation>About this element, number " + number +
                    ".</xs:documentation></xs:annotation><xs:complexType><xs:sequence>"
                    "<xs:element name='a' type='xs:string'/><xs:element name='b' type='xs:int' "
                    "minOccurs='0'/></xs:sequence><xs:attribute name='k' type='xs:string'/>"
                    "</xs:complexType></xs:element>";
    }
    return "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element name='orders'>"
           "<xs:complexType><xs:choice minOccurs='0' maxOccurs='unbounded'><xs:element "
           "ref='order'/>" +
           others +
           "</xs:choice></xs:complexType></xs:element><xs:element name='order'><xs:complexType>"
           "<xs:sequence><xs:element name='customer' type='xs:string'/><xs:element name='item' "
           "maxOccurs='unbounded'><xs:complexType><xs:sequence><xs:element name='code' "
           "type='xs:string'/><xs:element name='qty' type='xs:int'/></xs:sequence><xs:attribute "
           "name='n' type='xs:int'/></xs:complexType></xs:element></xs:sequence><xs:attribute "
           "name='id' type='xs:int'/><xs:attribute name='date' type='xs:date'/></xs:complexType>"
           "</xs:element>" +
           declared + "</xs:schema>";
}

} // namespace

void measureCandidates(Table &table, app::frmMain &form) {
    app::Editor &editor = form.editor();
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("orders.xsd")));
    const xml::Node first = editor.state.m_DOM.documentElement().firstChild();
    if (!first || !first.nextSibling() || !file.open(QIODevice::WriteOnly) ||
        file.write(orderSchema(1'000'000)) < 0)
        return table.failedRow("what may stand at a node");
    file.close();
    // The document has none of its own, and when that has been found out it would be the one.
    while (editor.schemas.isFinding())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::optional<grammar::Grammar> grammar;
    table.row("read a schema of 1 MB",
              bestOf(3, [&] { grammar = grammar::loadGrammar({file.fileName()}); }), "ms", 300);
    table.row("have it ready for answers",
              bestOf(
                  3, [&] { editor.candidateFinder.setGrammar(grammar); },
                  [&] { editor.candidateFinder.setGrammar({}); }),
              "ms", 0);
    form.candidates().open();
    const items::TreeItem items[] = {editor.builder.itemOf(first),
                                     editor.builder.itemOf(first.nextSibling())};
    std::size_t turn = 0;
    // The panel fills its lists as soon as there is nothing else to do.
    const auto select = [&] {
        editor.selection.ShowNode(items[++turn % 2], true);
        for (int round = 0; round < 3; ++round)
            QCoreApplication::processEvents();
    };
    // That many records as no document of 10 MB has take their time.
    const double limit = editor.state.m_DOM.maxNodeCount() < 3'000'000 ? 100 : 0;
    table.row("click on a record, until the panel has its lists",
              bestOf(5, select, [&] { editor.candidateFinder.documentReplaced(); }), "ms", limit);
    table.row("the same on the one beside it", bestOf(5, select), "ms", 100);
    const xml::Node nodes[] = {first, first.nextSibling()};
    using candidates::Position;
    table.row("what may be inserted behind a record, asked again",
              bestOf(5,
                     [&] {
                         return !editor.candidateFinder
                                     .elements(nodes[++turn % 2], Position::Behind)
                                     .entries.empty();
                     }),
              "ms", 5);
}

} // namespace quillon::bench
