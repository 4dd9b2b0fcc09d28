#include "edit/pretty_printing.h"

#include "platform/runtime/strings.h"
#include "platform/xml/dom/arrangement.h"
#include "platform/xml/dom/xml_beginning.h"
#include "resources/layout_texts.h"

#include <QSet>

#include <utility>

namespace quillon::edit {

namespace texts = resources::layout_texts;
using xml::LayoutPlan;
using xml::Node;

namespace {

/// So much of a document is shown ahead of the change.
constexpr std::size_t PreviewBytes = 128 * 1024;
/// No node is written in fewer bytes, so this many are enough for a preview.
constexpr std::size_t PreviewNodes = PreviewBytes / 4;

/// The lines of a text, and by what they are found in another layout of it: how many pieces of
/// markup begin ahead of them, and what they say. End tags do not count, as elements without
/// content may get or lose theirs.
class Lines {
public:
    void add(QByteArrayView text) {
        for (qsizetype at = 0; at <= text.size();) {
            qsizetype end = text.indexOf('\n', at);
            if (end < 0)
                end = text.size();
            addLine(text.sliced(at, end - at));
            at = end + 1;
        }
    }
    std::vector<LayoutPreview::Line> comparedWith(const Lines &other) const {
        std::vector<LayoutPreview::Line> compared;
        compared.reserve(lines_.size());
        for (const Line &line : lines_)
            compared.push_back({line.second, !other.known_.contains(line)});
        return compared;
    }

private:
    using Line = std::pair<qsizetype, QString>;

    void addLine(QByteArrayView text) {
        lines_.emplace_back(markup_, runtime::fromUtf8(text));
        known_.insert(lines_.back());
        for (qsizetype at = text.indexOf('<'); at >= 0; at = text.indexOf('<', at + 1))
            markup_ += text.sliced(at + 1).startsWith("/") ? 0 : 1;
    }

    qsizetype markup_ = 0;
    std::vector<Line> lines_;
    QSet<Line> known_;
};

} // namespace

PrettyPrinting::PrettyPrinting(const state::DocumentState &state, tree::TreeBuilder &builder,
                               items::Tree &tree, ui::LongWork &longWork)
    : state_(state), builder_(builder), tree_(tree), longWork_(longWork) {}

std::vector<Node> PrettyPrinting::tops(Scope scope) const {
    if (scope == Scope::Document)
        return {state_.m_DOM.node()};
    std::vector<Node> elements;
    for (const items::TreeItem &item : tree_.topmostSelectedItems()) {
        const Node node = builder_.registry().Item(item);
        if (node.nodeType() == xml::NodeType::Element)
            elements.push_back(node);
    }
    return elements;
}

bool PrettyPrinting::hasSelectedElements() const {
    return !tops(Scope::SelectedElements).empty();
}

LayoutPreview PrettyPrinting::preview(const xml::LayoutStyle &style, Scope scope) const {
    LayoutPreview preview;
    Lines before;
    Lines after;
    const xml::DOMDocument40 copy = state_.m_DOM.clone();
    std::size_t left = PreviewBytes;
    for (const Node &top : tops(scope)) {
        if (left == 0) {
            preview.isWhole = false;
            break;
        }
        const Node changed = copy.nodeByNumber(top.number());
        const QByteArray indent =
            QByteArray::fromStdString(xml::lineIndentOf(top).value_or(std::string()));
        bool isWhole = false;
        const QByteArray old = indent + xml::beginningOfXml(top, left, isWhole);
        preview.isWhole &= isWhole;
        xml::applyLayout(changed, xml::planLayout(top, style, {}, PreviewNodes));
        const QByteArray anew = indent + xml::beginningOfXml(changed, left, isWhole);
        preview.isWhole &= isWhole;
        before.add(old);
        after.add(anew);
        left -= std::min(left, std::size_t(anew.size()));
    }
    preview.before = before.comparedWith(after);
    preview.after = after.comparedWith(before);
    return preview;
}

void PrettyPrinting::format(const xml::LayoutStyle &style, Scope scope) {
    if (state_.m_ReadOnly || !state_.showsDocument())
        return;
    const std::vector<Node> all = tops(scope);
    std::vector<LayoutPlan> plans;
    std::size_t places = 0;
    longWork_.run(texts::Formatting.toString(), ui::LongWork::Stop::Offered,
                  [&](const runtime::Progress &progress) {
                      for (const Node &top : all) {
                          plans.push_back(xml::planLayout(top, style, progress));
                          places += plans.back().size();
                      }
                      // From here on nothing can be stopped any more.
                      for (const LayoutPlan &plan : plans)
                          xml::applyLayout(all.front(), plan);
                  });
    if (places == 0) {
        Q_EMIT statusText(texts::FormattedAlready.toString());
        return;
    }
    Q_EMIT documentModified();
    Q_EMIT statusText(texts::Formatted.toString().arg(places));
}

} // namespace quillon::edit
