#include "document/document_loader.h"

#include "document/document_head.h"
#include "platform/runtime/error.h"
#include "platform/runtime/file_access.h"
#include "platform/runtime/file_names.h"
#include "platform/runtime/numbers.h"
#include "platform/runtime/strings.h"
#include "platform/ui/error_boundary.h"
#include "platform/ui/message_box.h"
#include "platform/xml/io/file_bytes.h"
#include "resources/messages.h"
#include "resources/texts.h"
#include "resources/xml_texts.h"

#include <QFileInfo>
#include <QScopeGuard>

#include <filesystem>
#include <system_error>

namespace quillon::document {

using items::TreeItem;
using runtime::instr;
using runtime::left;
using runtime::mid;

namespace {

bool isReadOnlyFile(const QString &path) {
    if (!runtime::isRegularFile(path))
        runtime::raise(runtime::error_number::FileNotFound);
    return !runtime::mayWrite(path);
}

/// A larger stylesheet is none.
constexpr qint64 MostStylesheetBytes = 16 * 1024 * 1024;
/// So much of a faulty instruction is shown.
constexpr qsizetype ShownCharacters = 200;

/// Refuses at once what must not be opened, let alone be copied.
void requireOrdinaryFile(const QString &path) {
    namespace texts = resources::xml_texts;
    const QString shown = runtime::shownPath(path);
    const auto refuse = [](const QString &reason) {
        throw runtime::Error(runtime::error_number::Fail, reason);
    };
    const runtime::FileKind kind = runtime::fileKind(path);
    if (kind == runtime::FileKind::Special)
        refuse(texts::CannotOpenSpecial.toString().arg(shown));
    if (kind == runtime::FileKind::Folder)
        refuse(texts::CannotOpenFolder.toString().arg(shown));
    if (runtime::fileSize(path) > xml::MaxFileSize)
        refuse(texts::TooLarge.toString());
}

/// Whether the file's content really stands in a folder, wherever links lead.
bool liesIn(const QString &folder, const QString &file) {
    const auto real = [](const QString &path) {
        std::error_code error;
        return std::filesystem::canonical(runtime::encodedPath(path).toStdString(), error);
    };
    const std::filesystem::path found = real(file);
    return !found.empty() && found.parent_path() == real(folder);
}

} // namespace

DocumentLoader::DocumentLoader(state::DocumentState &state, tree::TreeBuilder &builder,
                               tree::Selection &selection, edit::UndoHistory &history,
                               items::Tree &tree, const system::WorkingFolder &workingFolder,
                               const RecentFiles &recentFiles, runtime::Clock clock,
                               ui::LongWork &longWork)
    : state_(state), builder_(builder), selection_(selection), history_(history), tree_(tree),
      workingFolder_(workingFolder), recentFiles_(recentFiles), clock_(std::move(clock)),
      longWork_(longWork) {}

bool DocumentLoader::OpenFile(const QString &fileName) {
    if (fileName.isEmpty())
        return false;
    requireOrdinaryFile(fileName);
    Q_EMIT statusText(resources::texts::Loading.toString());
    // Also when an error leads out of here.
    const auto clearStatus = qScopeGuard([this] { Q_EMIT statusText(QString()); });
    const auto endOpening = qScopeGuard([this] { Q_EMIT openingEnded(); });
    if (const xml::DOMDocument40 head = documentHead(fileName))
        Q_EMIT opening(head);
    const FileOnDisk file = FileOnDisk::of(fileName);
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    bool isStopped = false;
    longWork_.run(resources::texts::Loading.toString(), ui::LongWork::Stop::Offered,
                  [&](const runtime::Progress &progress) {
                      document.load(fileName, [&](double done) {
                          isStopped = progress && !progress(done);
                          return !isStopped;
                      });
                  });
    // Half a document would be none.
    if (isStopped)
        runtime::raise(runtime::error_number::Cancelled);
    // What is shown stays the document, and can be saved, until another one can be shown. Where
    // nothing is, a load that fails leaves an empty document.
    if (!state_.showsAnything())
        state_.m_DOM = state_.failedLoad = document;
    const bool readOnly = state_.m_ReadOnly || isReadOnlyFile(fileName);
    // A file that does not parse is copied, too.
    const QString backup = backUp(fileName, !document.documentElement().isNull());
    if (!document.documentElement()) {
        Q_EMIT openingEnded();
        ui::showMessage(resources::messageText(resources::message::CannotParse),
                        ui::message_style::Exclamation);
        return false;
    }
    Q_EMIT replacing();
    state_.m_DOM = document;
    state_.failedLoad = {};
    state_.isBroken = false;
    state_.m_ReadOnly = readOnly;
    state_.m_BackupPath = backup;
    builder_.BuildTree(state_.m_DOM, true);
    const xml::Node faulty = copyStylesheets(fileName);
    showFromTop();
    state_.m_Modified = false;
    state_.m_Opened = true;
    fileOnDisk_ = file;
    Q_EMIT documentOpened();
    history_.ResetUndoHistory();
    recentFiles_.add(fileName);
    Q_EMIT openingEnded();
    tellOfFaulty(faulty);
    return true;
}

void DocumentLoader::tellOfFaulty(const xml::Node &stylesheetLink) {
    // The document as such is open, whatever is wrong with its stylesheet.
    if (stylesheetLink)
        ui::showMessage(resources::texts::UnreadableStylesheetLink.toString().arg(
                            QString::fromUtf8(stylesheetLink.xml()).left(ShownCharacters)),
                        ui::message_style::Exclamation);
}

QString DocumentLoader::backUp(const QString &fileName, bool replacesDocument) {
    const QString stamp = runtime::timeStamp(clock_.now());
    // In the same second a copy goes over this window's own, but never over another window's, nor
    // over that of a document which stays.
    for (int number = 1;; ++number) {
        const QString name = number == 1 ? stamp : QStringLiteral("%1-%2").arg(stamp).arg(number);
        const QString path = workingFolder_.fileToWrite(name + system::working_name::BackupSuffix);
        const bool mayGo = path == ownBackup_ && (replacesDocument || path != state_.m_BackupPath);
        if (system::copyFile(fileName, path,
                             mayGo ? system::ExistingFile::Replace : system::ExistingFile::Keep))
            return ownBackup_ = path;
    }
}

xml::Node DocumentLoader::copyStylesheets(const QString &fileName) {
    const QString folder = QFileInfo(fileName).absolutePath();
    state_.stylesheetFiles.clear();
    xml::Node faulty;
    for (xml::Node child = state_.m_DOM.node().firstChild(); child; child = child.nextSibling()) {
        if (child.nodeType() != xml::NodeType::ProcessingInstruction ||
            child.nodeName() != QLatin1String("xml-stylesheet"))
            continue;
        try {
            copyStylesheet(folder, child.text());
        } catch (const runtime::Error &) {
            if (!faulty)
                faulty = child;
        }
    }
    return faulty;
}

void DocumentLoader::copyStylesheet(const QString &documentFolder, const QString &data) {
    // Positions in an instruction are 16-bit numbers: a longer one is refused as an overflow.
    runtime::toInteger(data.size());
    const qsizetype p = instr(data, u"href=");
    const QStringView quote = mid(data, p + 5, 1);
    const QStringView rest = mid(data, p + 6);
    const QString href = left(rest, instr(rest, quote) - 1).toString();
    const QString original = documentFolder + QLatin1Char('/') + href;
    // The document may come from a stranger, and name whatever it likes.
    if (href.contains(u'\\') || !system::WorkingFolder::isFree(href) ||
        !liesIn(documentFolder, original))
        return;
    ui::ignoringErrors([&] {
        system::copyFile(original, workingFolder_.fileToWrite(href), system::ExistingFile::Replace,
                         MostStylesheetBytes);
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
    state_.isBroken = false;
    state_.m_BackupPath.clear();
    fileOnDisk_ = {};
    builder_.BuildTree(state_.m_DOM, true);
    showFromTop();
    Q_EMIT documentOpened();
    history_.ResetUndoHistory();
}

std::optional<xml::FileText> DocumentLoader::readBroken(const QString &path) {
    const FileOnDisk file = FileOnDisk::of(path);
    std::optional<xml::FileText> text;
    longWork_.run(
        resources::texts::Loading.toString(), ui::LongWork::Stop::NotOffered,
        [&](const runtime::Progress &) { text = xml::FileText::of(xml::readFile(path)); });
    if (text)
        fileOnDisk_ = file;
    return text;
}

bool DocumentLoader::openMended(std::string bytes) {
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    longWork_.run(
        resources::texts::Loading.toString(), ui::LongWork::Stop::NotOffered,
        [&](const runtime::Progress &progress) { document.loadBytes(std::move(bytes), progress); });
    if (!document.documentElement())
        return false;
    state_.m_DOM = document;
    state_.isBroken = false;
    builder_.BuildTree(state_.m_DOM, true);
    expandTopLevel(tree_);
    selection_.takePaneAs(tree_.nodes().Item(1));
    const bool hasFile = QFileInfo(state_.m_FileName).isAbsolute();
    const xml::Node faulty = hasFile ? copyStylesheets(state_.m_FileName) : xml::Node();
    Q_EMIT documentOpened();
    history_.ResetUndoHistory();
    if (hasFile)
        recentFiles_.add(state_.m_FileName);
    tellOfFaulty(faulty);
    return true;
}

void DocumentLoader::showFromTop() {
    ui::ignoringErrors([this] {
        expandTopLevel(tree_);
        tree_.setFocus();
        selection_.ShowNode(tree_.nodes().Item(1), true);
    });
}

void DocumentLoader::expandTopLevel(items::Tree &tree) {
    TreeItem document = tree.nodes().Item(1);
    document.setExpanded(true);
    for (TreeItem child = document.Child(); child; child = child.Next())
        child.setExpanded(true);
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
