#include "document/commands/document_loader.h"

#include "platform/controls/error_boundary.h"
#include "platform/controls/message_box.h"
#include "platform/runtime/error.h"
#include "platform/runtime/numbers.h"
#include "platform/runtime/strings.h"
#include "resources/messages.h"
#include "resources/texts.h"

#include <QFileInfo>
#include <QScopeGuard>

namespace quillon::document {

using controls::TreeItem;
using runtime::instr;
using runtime::left;
using runtime::mid;

namespace {

bool isReadOnlyFile(const QString &path) {
    const QFileInfo file(path);
    if (!file.isFile())
        runtime::raise(runtime::error_number::FileNotFound);
    return !file.permission(QFile::WriteOwner);
}

} // namespace

DocumentLoader::DocumentLoader(DocumentState &state, tree::TreeBuilder &builder,
                               tree::Selection &selection, edit::UndoHistory &history,
                               controls::TreeView &tvw, const system::WorkingFolder &workingFolder,
                               const RecentFiles &recentFiles, runtime::Clock clock,
                               controls::LongWork &longWork)
    : state_(state), builder_(builder), selection_(selection), history_(history), tvw_(tvw),
      workingFolder_(workingFolder), recentFiles_(recentFiles), clock_(std::move(clock)),
      longWork_(longWork) {}

bool DocumentLoader::OpenFile(const QString &fileName) {
    if (fileName.isEmpty())
        return false;
    Q_EMIT statusText(resources::texts::Loading.toString());
    // Also when an error leads out of here.
    const auto clearStatus = qScopeGuard([this] { Q_EMIT statusText(QString()); });
    const FileOnDisk file = FileOnDisk::of(fileName);
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    // Half a document would be none, so there is no stopping it.
    longWork_.run(resources::texts::Loading.toString(), controls::LongWork::Stop::NotOffered,
                  [&](const runtime::Progress &progress) { document.load(fileName, progress); });
    // What is shown stays the document, and can be saved, until another one can be shown. Where
    // nothing is, a load that fails leaves an empty document.
    if (!state_.showsDocument())
        state_.m_DOM = state_.failedLoad = document;
    const bool readOnly = state_.m_ReadOnly || isReadOnlyFile(fileName);
    // A file that does not parse is copied, too.
    const QString backup = backUp(fileName);
    if (!document.documentElement()) {
        controls::showMessage(resources::messageText(resources::message::CannotParse),
                              controls::message_style::Exclamation);
        return false;
    }
    Q_EMIT replacing();
    state_.m_DOM = document;
    state_.failedLoad = {};
    state_.m_ReadOnly = readOnly;
    state_.m_BackupPath = backup;
    builder_.BuildTree(state_.m_DOM, true);
    copyStylesheets(fileName);
    showFromTop();
    state_.m_Modified = false;
    state_.m_Opened = true;
    fileOnDisk_ = file;
    Q_EMIT documentOpened();
    history_.ResetUndoHistory();
    recentFiles_.add(fileName);
    return true;
}

QString DocumentLoader::backUp(const QString &fileName) const {
    const QString path =
        workingFolder_.fileToWrite(runtime::timeStamp(clock_.now()) + QStringLiteral(".bak"));
    system::copyFile(fileName, path);
    return path;
}

void DocumentLoader::copyStylesheets(const QString &fileName) {
    const QString folder = QFileInfo(fileName).absolutePath();
    state_.stylesheetFiles.clear();
    for (xml::Node child = state_.m_DOM.node().firstChild(); child; child = child.nextSibling()) {
        if (child.nodeType() == xml::NodeType::ProcessingInstruction &&
            child.nodeName() == QLatin1String("xml-stylesheet"))
            copyStylesheet(folder, child.text());
    }
}

void DocumentLoader::copyStylesheet(const QString &documentFolder, const QString &data) {
    // Positions are 16-bit numbers; a longer text overflows. That is meant so.
    runtime::toInteger(data.size());
    const qsizetype p = instr(data, u"href=");
    const QStringView quote = mid(data, p + 5, 1);
    const QStringView rest = mid(data, p + 6);
    const QString href =
        left(rest, instr(rest, quote) - 1).toString().replace(QLatin1Char('\\'), QLatin1Char('/'));
    controls::ignoringErrors([&] {
        const QString copy = workingFolder_.filePath(href);
        system::copyFile(documentFolder + QLatin1Char('/') + href, copy);
        system::makeWritable(copy);
        state_.stylesheetFiles.append(href);
    });
}

void DocumentLoader::openRecovered(const QString &path) {
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    // Of a document that was still empty only the typing in its pane has been kept.
    if (QFileInfo(path).size() != 0 && !document.load(path))
        throw runtime::Error(
            runtime::error_number::Fail,
            resources::texts::CannotRecover.toString().arg(path, document.parseError().reason));
    Q_EMIT replacing();
    state_.m_DOM = document;
    state_.m_BackupPath.clear();
    fileOnDisk_ = {};
    builder_.BuildTree(state_.m_DOM, true);
    showFromTop();
    Q_EMIT documentOpened();
    history_.ResetUndoHistory();
}

void DocumentLoader::showFromTop() {
    controls::ignoringErrors([this] {
        expandTopLevel();
        selection_.ShowNode(tvw_.nodes().Item(1), true);
    });
}

void DocumentLoader::expandTopLevel() {
    TreeItem document = tvw_.nodes().Item(1);
    document.setExpanded(true);
    for (TreeItem child = document.Child(); child; child = child.Next())
        child.setExpanded(true);
    tvw_.setFocus();
}

void DocumentLoader::LoadXML(const QString &xmlText) {
    state_.m_DOM = xml::DOMDocument40::create();
    state_.m_DOM.loadXML(xmlText);
    // It has been opened from no file that could be gone back to.
    state_.m_BackupPath.clear();
    const xml::Node node = state_.m_DOM.node();
    builder_.BuildTree(state_.m_DOM, true);
    Q_EMIT statusUpdateRequested(node.nodeName());
}

} // namespace quillon::document
