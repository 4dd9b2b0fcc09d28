#include "preview/preview.h"

#include "platform/runtime/error.h"
#include "platform/runtime/file_names.h"
#include "platform/runtime/paths.h"
#include "platform/ui/dialogs.h"
#include "platform/ui/error_boundary.h"
#include "platform/ui/message_box.h"
#include "platform/xml/dom/document_states.h"
#include "platform/xml/transform/xslt.h"
#include "platform/xml/transform/xslt_engine.h"
#include "resources/messages.h"
#include "resources/texts.h"

#include <QDataStream>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>

namespace quillon::preview {

using xml::DOMDocument40;
using xml::Node;
using xml::NodeType;
using Colours = ui::Browser::Colours;
namespace texts = resources::texts;

namespace {

/// A document with more nodes than this takes more than about half a second to render, and is not
/// rendered whole without being asked for. Nor is one with elements nested deeper than a part of it
/// would show them: ids of a chain of elements grow with the square of its depth.
constexpr quint32 LargeDocument = 100'000;

/// When a page has taken in so many nodes, it begins anew around what is wanted next.
constexpr std::size_t LargePart = 10'000;

/// Milliseconds without a change of the tree before the preview follows it.
constexpr int QuietBeforeRefresh = 300;
/// The same for keys, which come more slowly than that at times.
constexpr int QuietAfterKey = 900;
/// Longer than an arrow key takes to repeat.
constexpr int QuietAfterSelection = 40;

/// What the transformation adds for a file in UTF-16, which the preview file is not.
const QString MetaTag =
    QStringLiteral("<META http-equiv=\"Content-Type\" content=\"text/html; charset=UTF-16\">");

/// Tells the browser that the file is in UTF-8, whatever the page says.
constexpr char Utf8Mark[] = "\xEF\xBB\xBF";

/// For a place inside an attribute or text of a stylesheet, and inside a quoted name of CSS.
QString escapedFontName(QString name) {
    return name.remove(QLatin1Char('\'')).remove(QLatin1Char('\\')).toHtmlEscaped();
}

/// How many nodes stand one in the other below a node, at most.
int deepestIn(const Node &top) {
    class DepthMeter : public xml::NodeVisitor {
    public:
        void enter(quint32, NodeType kind) override {
            if (kind != NodeType::Attribute)
                deepest = std::max(deepest, depth);
            ++depth;
        }
        void leave() override { --depth; }

        int deepest = 0;
        int depth = 0;
    } meter;
    xml::visitSubtree(top, meter);
    return meter.deepest;
}

void requireParsed(const DOMDocument40 &document) {
    const xml::ParseError &error = document.parseError();
    if (error.errorCode != 0)
        throw runtime::Error(
            error.errorCode,
            texts::StylesheetFault.toString().arg(error.line).arg(error.linepos).arg(error.reason));
}

} // namespace

Preview::Preview(const state::DocumentState &state, tree::TreeBuilder &builder,
                 tree::Selection &selection, items::Tree &tree, ui::Browser &ie,
                 const system::WorkingFolder &workingFolder, ui::LongWork &longWork,
                 std::function<PreviewFont()> font)
    : state_(state), builder_(builder), selection_(selection), tree_(tree), ie_(ie),
      workingFolder_(workingFolder), longWork_(longWork), font_(std::move(font)) {
    later_.setSingleShot(true);
    connect(&later_, &QTimer::timeout, this,
            [this] { ui::guarded([this] { renderUnasked(std::exchange(requested_, Node())); }); });
    connect(&child_, &xml::BackgroundChild::finished, this,
            [this](const QByteArray &page) { ui::guarded([&] { takeRendered(page); }); });
    connect(&child_, &xml::BackgroundChild::failed, this,
            [this](const runtime::Error &error) { Q_EMIT statusText(error.description()); });
}

void Preview::requestPreview(const Node &node) {
    requested_ = node;
    later_.start(0);
}

void Preview::clear() {
    later_.stop();
    requested_ = Node();
    child_.giveUp();
    part_.reset();
    partOf_ = DOMDocument40();
    forgetPlace();
    ie_.Navigate(QStringLiteral("about:blank"), {}, Colours::OfTheme);
}

void Preview::SyncPreview() {
    if (!previewSync_ || !m_strXslPath.isEmpty() || !m_bPreviewWhole)
        return;
    requestPreview(state_.m_DOM.node());
    // One change after the other must not wait for a rendering each.
    later_.start(QuietBeforeRefresh);
}

void Preview::documentChanged() {
    if (!part_ || !previewSync_)
        return;
    requestPreview(state_.m_DOM.node());
    later_.start(QuietAfterKey);
}

bool Preview::ShowPreview(const Node &node) {
    return tryToRender(node, Asked::Yes);
}

bool Preview::tryToRender(const Node &node, Asked asked) {
    if (!node)
        return true;
    const bool wholeBefore = m_bPreviewWhole;
    try {
        render(node, asked);
        if (std::exchange(saysStopped_, false))
            Q_EMIT statusText(QString());
    } catch (const runtime::Error &error) {
        if (error.number() == runtime::error_number::Cancelled) {
            m_bPreviewWhole = wholeBefore;
            saysStopped_ = true;
            Q_EMIT statusText(error.description());
            return false;
        }
        ui::showMessage(resources::messageText(resources::message::CannotPreview) +
                            QStringLiteral("\r\n") + error.description(),
                        ui::message_style::Exclamation);
    }
    return true;
}

void Preview::render(const Node &node, Asked asked) {
    m_bPreviewWhole = node.nodeType() == NodeType::Document;
    const QString path = m_bPreviewWhole ? m_strXslPath : QString();
    const bool chosen = m_bPreviewWhole && hasChosenStylesheet();
    const DOMDocument40 sheet = chosen ? stylesheet(path) : builtInStylesheet();
    QString extension = !chosen || prevHtml_ ? QStringLiteral("htm") : QStringLiteral("xml");
    xml::TransformOptions options;
    options.folders = {chosen ? stylesheetFolder_ : workingFolder_.path(), workingFolder_.path()};
    QString result;
    const auto transform = [&](const runtime::Progress &progress) {
        options.progress = progress;
        // In a process of its own it works on a copy, never on the document.
        result = xml::transformNode(node, sheet, options);
    };
    if (asked == Asked::Yes)
        longWork_.run(texts::Rendering.toString(), ui::LongWork::Stop::Offered, transform);
    else
        transform({});
    result.remove(MetaTag);
    if (result.contains(QLatin1String("<html"), Qt::CaseInsensitive))
        extension = QStringLiteral("htm");
    part_.reset();
    show(result, extension, subjectOf(node, path),
         chosen ? Colours::OfItsAuthor : Colours::OfTheme);
}

bool Preview::hasChosenStylesheet() const {
    return QFileInfo(m_strXslPath).isFile();
}

QString Preview::subjectOf(const Node &node, const QString &stylesheet) const {
    // Nodes keep their numbers through undo and redo, so their places are found again.
    return QStringLiteral("%1 %2 %3").arg(documents_).arg(node.number()).arg(stylesheet);
}

DOMDocument40 Preview::stylesheet(const QString &path) const {
    DOMDocument40 sheet = DOMDocument40::create();
    sheet.load(path);
    requireParsed(sheet);
    return sheet;
}

DOMDocument40 Preview::builtInStylesheet() const {
    QFile file(QStringLiteral(":/preview.xsl"));
    file.open(QIODevice::ReadOnly);
    QString text = QString::fromUtf8(file.readAll());
    const PreviewFont font = font_();
    text.replace(QLatin1String("%FONT_NAME%"), escapedFontName(font.name));
    text.replace(QLatin1String("%FONT_SIZE%"), QString::number(font.size) + QStringLiteral("pt"));
    DOMDocument40 sheet = DOMDocument40::create();
    sheet.loadXML(text);
    requireParsed(sheet);
    return sheet;
}

void Preview::show(const QString &page, const QString &extension, const QString &subject,
                   Colours colours) {
    child_.giveUp();
    const QString path = workingFolder_.fileToWrite(system::working_name::PreviewStem + extension);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly, QFile::ReadOwner | QFile::WriteOwner) ||
        file.write(Utf8Mark) < 0 || file.write(page.toUtf8()) < 0 || !file.flush())
        throw runtime::Error(runtime::error_number::DeviceIo,
                             texts::CannotWritePreview.toString().arg(path, file.errorString()));
    file.close();
    ie_.setFiles(state_.stylesheetFiles);
    ie_.Navigate(path, subject, colours);
}

void Preview::renderUnasked(const Node &node) {
    if (node.nodeType() != NodeType::Document)
        return static_cast<void>(tryToRender(node, Asked::No));
    if (const QString reason = objection(node); !reason.isEmpty())
        showNotice(reason);
    else if (node.ownerDocument().maxNodeCount() > LargeDocument)
        renderPart();
    else
        tryToRender(node, Asked::No);
}

QString Preview::objection(const Node &document) const {
    const quint32 nodes = document.ownerDocument().maxNodeCount();
    const bool isLarge = nodes > LargeDocument;
    // What a user's stylesheet makes of a part is not what it makes of that part of the whole.
    if (isLarge && hasChosenStylesheet())
        return texts::LargePreview.toString().arg(QLocale().toString(nodes));
    const int depth = isLarge ? depthOf(selectedNode()) : deepestIn(document);
    if (depth > ShownPart::DeepestShown)
        return texts::DeepPreview.toString().arg(QLocale().toString(depth));
    return {};
}

void Preview::showNotice(const QString &reason) {
    m_bPreviewWhole = true;
    part_.reset();
    show(texts::PreviewNotice.toString().arg(reason), QStringLiteral("htm"), QString(),
         Colours::OfTheme);
}

Node Preview::selectedNode() const {
    Node node = selection_.GetSelectedDOMNode();
    if (node.nodeType() == NodeType::Attribute)
        node = selection_.GetDOMNode(tree_.SelectedItem().Parent());
    return node ? node : state_.m_DOM.node();
}

QList<quint32> Preview::blocksOfSelected() const {
    const Node node = selectedNode();
    return {node.number(), node.parentNode().number()};
}

void Preview::renderPart() {
    if (!part_ || !xml::haveCommonOrigin(partOf_, state_.m_DOM))
        part_.emplace();
    partOf_ = state_.m_DOM;
    const auto change = [document = partOf_, selected = selectedNode(),
                         goesAlong = previewSync_](ShownPart &part) -> std::optional<PartOfPage> {
        if (!part.isEmpty())
            part.follow(document);
        const bool isElsewhere = part.isEmpty() || (goesAlong && !part.shows(selected));
        if (isElsewhere)
            part = ShownPart::around(selected);
        return PartOfPage{part.runs(document), isElsewhere};
    };
    startRendering(change, [this](const QString &page, bool isElsewhere) {
        m_bPreviewWhole = true;
        show(page, QStringLiteral("htm"), subjectOf(partOf_.node(), QString()), Colours::OfTheme);
        if (isElsewhere)
            ie_.reveal(blocksOfSelected());
    });
}

void Preview::startRendering(PartChange change,
                             std::function<void(const QString &page, bool isElsewhere)> take) {
    takePage_ = std::move(take);
    xml::TransformOptions options;
    options.folders = {workingFolder_.path()};
    const auto render = [options, change = std::move(change), part = *part_,
                         document = state_.m_DOM, sheet = builtInStylesheet()] {
        ShownPart changed = part;
        const std::optional<PartOfPage> onPage = change(changed);
        QByteArray report;
        QDataStream stream(&report, QIODevice::WriteOnly);
        stream << changed << onPage.has_value();
        if (!onPage)
            return report;
        xml::TransformOptions ofPart = options;
        ofPart.part = &onPage->runs;
        stream << onPage->isElsewhere << xml::runStylesheet(document.node(), sheet, ofPart);
        return report;
    };
    child_.start(render, {options.timeLimit, options.memoryLimit});
}

void Preview::takeRendered(const QByteArray &report) {
    QDataStream stream(report);
    bool hasPage = false;
    bool isElsewhere = false;
    QByteArray page;
    stream >> part_.emplace() >> hasPage;
    if (!hasPage)
        return;
    stream >> isElsewhere >> page;
    std::exchange(takePage_, {})(QString::fromUtf8(page).remove(MetaTag), isElsewhere);
}

void Preview::showMore(quint32 first, ShownPart::End end) {
    // What is on its way comes first; the page asks again.
    if (!part_ || child_.isRunning() || later_.isActive())
        return;
    const Node node = state_.m_DOM.nodeByNumber(first);
    if (!(partOf_ == state_.m_DOM) || !part_->leavesOut(node))
        return renderPart();
    if (part_->size() > LargePart) {
        part_ = ShownPart::around(node);
        return renderPart();
    }
    const auto change = [node, end](ShownPart &part) -> std::optional<PartOfPage> {
        xml::DocumentPart added = part.extend(node, end);
        if (added.empty())
            return {};
        return PartOfPage{std::move(added), false};
    };
    startRendering(change, [this](const QString &page, bool) { ie_.takeIn(page); });
}

void Preview::showSelected() {
    if (!part_ || !previewSync_ || !state_.m_DOM)
        return;
    if (part_->shows(selectedNode()) && !child_.isRunning())
        return ie_.reveal(blocksOfSelected());
    requestPreview(state_.m_DOM.node());
    later_.start(QuietAfterSelection);
}

void Preview::mnuToolPreview_Click() {
    if (!state_.m_DOM.isNull())
        ShowPreview(state_.m_DOM.node());
}

void Preview::mnuToolPreviewSel_Click() {
    Node node = selection_.GetSelectedDOMNode();
    if (node.nodeType() != NodeType::Element && node.nodeType() != NodeType::Document)
        node = selection_.GetDOMNode(tree_.SelectedItem().Parent());
    ShowPreview(node);
}

void Preview::mnuToolSelXSL_Click() {
    const ui::FileDialogResult chosen = ui::dialogs().showOpen(
        {texts::SelectStylesheetTitle.toString(), texts::StylesheetFilter.toString(),
         ui::file_dialog_flag::HideReadOnly, QString(),
         stylesheetFolder_.isEmpty() ? state_.folder() : stylesheetFolder_});
    if (chosen.path.isEmpty())
        return;
    m_strXslPath = workingFolder_.fileToWrite(runtime::shownPath(runtime::fileName(chosen.path)));
    stylesheetFolder_ = QFileInfo(chosen.path).absolutePath();
    system::copyFile(chosen.path, m_strXslPath);
    ShowPreview(state_.m_DOM.node());
}

void Preview::mnuToolPrevHTML_Click(bool checked) {
    prevHtml_ = checked;
    ShowPreview(state_.m_DOM.node());
}

void Preview::mnuFilePrint_Click() {
    if (state_.m_DOM.isNull())
        return;
    if (!ShowPreview(state_.m_DOM.node()))
        return;
    ie_.print(runtime::shownPath(runtime::fileName(state_.m_FileName)));
}

void Preview::m_doc_onclick(const QString &id) {
    if (id.isEmpty() || !m_bPreviewWhole || !previewSync_)
        return;
    const QStringList parts = id.split(QLatin1Char('.'));
    Node node = state_.m_DOM.documentElement();
    // The first two parts stand for the document and the root element.
    for (qsizetype k = 2; k < parts.size() && node; ++k)
        node = node.childNodes().item(parts[k].toInt() - 1);
    selection_.ShowNode(builder_.itemOf(node), true);
}

} // namespace quillon::preview
