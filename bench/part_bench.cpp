#include "bench/part_bench.h"

#include "app/main_window/frm_main.h"
#include "bench/own_memory.h"
#include "bench/report.h"
#include "bench/waiting.h"
#include "document/document_head.h"
#include "platform/xml/io/encoding.h"
#include "platform/xml/io/file_bytes.h"

#include <QTemporaryDir>

#include <cstdio>
#include <fstream>
#include <string>

namespace quillon::bench {

namespace {

/// The line of a part. Whether it could be done; work may say so itself.
template <typename Work>
bool measurePart(Table &table, const std::string &name, Work &&work) {
    const double before = ownMegabytes("VmRSS");
    const bool isPeakKnown = forgetPeak();
    const double took = bestOf(1, std::forward<Work>(work));
    const double after = ownMegabytes("VmRSS");
    const double peak = isPeakKnown ? ownMegabytes("VmHWM") : NotMeasured;
    table.part(name, took, after - before, peak - std::max(before, after));
    return took == took;
}

} // namespace

bool measureParts(Table &table, const QString &path) {
    const QTemporaryDir folder;
    app::frmMain *form = nullptr;
    const auto makeWindow = [&] {
        form = new app::frmMain({folder.path(), {}, {}});
        form->show();
        QCoreApplication::processEvents();
    };
    xml::DOMDocument40 head;
    const auto showFirst = [&] {
        head = document::documentHead(path);
        if (head)
            Q_EMIT form->editor().loader.opening(head);
    };
    std::string bytes;
    const auto read = [&] { bytes = xml::readFile(path); };
    xml::Decoded decoded;
    const auto decode = [&] {
        decoded = xml::decodeFile(std::move(bytes));
        return decoded.error.isNull();
    };
    if (!measurePart(table, "part: an empty window", makeWindow))
        return false;
    table.row("the first screen of the tree, ahead of everything else", bestOf(1, showFirst), "ms",
              300);
    Q_EMIT form->editor().loader.openingEnded();
    if (!measurePart(table, "part: read the file", read) ||
        !measurePart(table, "part: decode it", decode))
        return false;
    // Decoding is part of the next step as well, which takes bytes.
    decoded = {};
    bytes = xml::readFile(path);

    app::Editor &editor = form->editor();
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    const auto parse = [&] { return document.loadBytes(std::move(bytes)); };
    const auto build = [&] {
        editor.state.m_DOM = document;
        editor.builder.BuildTree(document, true);
    };
    const auto copy = [&] {
        return system::copyFile(path, folder.filePath(QStringLiteral("copy.bak")));
    };
    const auto fillPane = [&] { editor.selection.ShowNode(editor.tree.nodes().Item(1), true); };
    const auto paint = [&] {
        Q_EMIT editor.loader.documentOpened();
        QCoreApplication::processEvents();
    };
    const auto preview = [&] {
        bool isShown = false;
        auto *const browser = form->findChild<browser::Browser *>(QStringLiteral("ie"));
        const auto shown = QObject::connect(browser, &browser::Browser::NavigateComplete, form,
                                            [&](bool ok) { isShown = ok; });
        editor.commands.UpdateStatus(path);
        const bool isDone = waitFor([&] { return isShown; });
        QObject::disconnect(shown);
        return isDone;
    };
    const auto settle = [&] {
        return waitFor([&] { return !editor.schemas.isFinding() && editor.live.isUpToDate(); });
    };
    return measurePart(table, "part: decode and parse it", parse) &&
           measurePart(table, "part: the copy of the file", copy) &&
           measurePart(table, "part: the tree's items", build) &&
           measurePart(table, "part: the pane", fillPane) &&
           measurePart(table, "part: show tree and pane", paint) &&
           measurePart(table, "part: start the browser, the preview or its notice", preview) &&
           measurePart(table, "part: the rest, until schemas are looked for and checked", settle);
}

} // namespace quillon::bench
