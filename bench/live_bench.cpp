#include "bench/live_bench.h"

#include "app/main_window/frm_main.h"
#include "bench/check_bench.h"
#include "bench/report.h"
#include "bench/waiting.h"
#include "platform/xml/schema/grammar/load_grammar.h"
#include "platform/xml/schema/verdict/verdict.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <memory>

namespace quillon::bench {

namespace {

/// The schema, as it is when it has been found for the document.
bool useSchema(app::Editor &editor, const QTemporaryDir &folder) {
    const QString path = folder.filePath(QStringLiteral("orders.xsd"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(OrderXsd) < 0)
        return false;
    file.close();
    editor.schemas.disconnect();
    editor.live.setSchemas(
        grammar::loadGrammar({.path = path}), [path](const xml::DOMDocument40 &document) {
            return xml::verdict(document, {{.kind = xml::SchemaKind::Xsd, .path = path}});
        });
    return true;
}

} // namespace

void measureLive(Table &table, app::frmMain &form) {
    app::Editor &editor = form.editor();
    validation::LiveValidation &live = editor.live;
    auto &pane = *form.findChild<controls::TextBox *>(QStringLiteral("txtEdit"));
    const QTemporaryDir folder;
    const auto upToDate = [&] { return live.isUpToDate(); };
    table.row("check the document when it has been opened",
              bestOf(3, [&] { return useSchema(editor, folder) && waitFor(upToDate); }), "ms", 0);
    const xml::Node order = editor.state.m_DOM.documentElement().firstChild();
    if (!order || !live.isKnown() || !live.faults().empty())
        return table.failedRow("marks while editing");
    editor.selection.ShowNode(editor.builder.itemOf(order), true);
    QCoreApplication::processEvents();

    // A key that makes a fault, and one that mends it again; told with the pause after the key.
    const QString valid = pane.Text();
    const QString faulty =
        QString(valid).replace(QLatin1String("customer>"), QLatin1String("customers>"));
    const auto marksAfter = [&](const QString &typed, bool isFaulty) {
        pane.setText(typed);
        return waitFor([&] { return live.faults().empty() != isFaulty; });
    };
    table.row("marks, from the key on",
              bestOf(
                  5, [&] { return marksAfter(faulty, true); },
                  [&] {
                      marksAfter(valid, false);
                      waitFor(upToDate);
                  }),
              "ms", 300);
    marksAfter(valid, false);

    // As fast as keys come, and while the document is being checked.
    const xml::Node text = editor.selection.GetSelectedDOMNode().firstChild().firstChild();
    editor.selection.ShowNode(editor.builder.itemOf(text), true);
    QString typed = pane.Text();
    table.row("one keystroke with marks on",
              bestOf(20,
                     [&] {
                         pane.setText(typed += QLatin1Char('x'));
                         QCoreApplication::processEvents();
                     }),
              "ms", 2);
    waitFor(upToDate);
}

} // namespace quillon::bench
