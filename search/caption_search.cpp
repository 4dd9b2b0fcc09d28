#include "search/caption_search.h"

#include "platform/runtime/error.h"
#include "platform/runtime/like.h"
#include "platform/ui/dialogs.h"
#include "resources/hit_texts.h"
#include "resources/texts.h"
#include "tree/node_captions.h"

#include <limits>
#include <memory>

namespace quillon::search {

using items::TreeItem;
namespace texts = resources::texts;

namespace {

/// What of a node can be its caption.
QString textOf(const xml::Node &node, Part part) {
    const bool isAttribute = node.nodeType() == xml::NodeType::Attribute;
    if (part == Part::Node && isAttribute)
        return tree::attributeCaption(node.nodeName(), node.nodeValue());
    if (part == Part::Value)
        return isAttribute ? QString() : node.nodeValue();
    return node.nodeName();
}

} // namespace

CaptionSearch::CaptionSearch(items::Tree &tree, tree::Selection &selection)
    : tree_(tree), selection_(selection) {}

void CaptionSearch::mnuEditFind_Click() {
    m_strFind = ui::dialogs().inputText(texts::FindPrompt.toString() + u'\n' +
                                        resources::hit_texts::FindWildcards.toString());
    if (m_strFind.isEmpty())
        return;
    mnuEditFindNext_Click();
    const Hits hits = allMatches();
    if (!hits.hits.empty())
        Q_EMIT found(hits);
}

void CaptionSearch::mnuEditFindNext_Click() {
    TreeItem start = tree_.SelectedItem();
    if (!start)
        start = tree_.nodes().Item(1);
    if (!start)
        return;
    if (m_strFind.isEmpty())
        mnuEditFind_Click();
    else
        SearchForward(start, m_strFind);
}

bool CaptionSearch::SearchForward(const TreeItem &start, const QString &pattern) {
    if (search(start, +1, pattern))
        return true;
    Q_EMIT statusText(texts::SearchedToEnd.toString());
    return false;
}

bool CaptionSearch::SearchBackward(const TreeItem &start, const QString &pattern) {
    if (!start)
        return false;
    if (search(start, -1, pattern))
        return true;
    Q_EMIT statusText(texts::SearchedToTop.toString());
    return false;
}

bool CaptionSearch::search(const TreeItem &start, int step, const QString &pattern) {
    const items::Nodes &nodes = tree_.nodes();
    const int count = nodes.Count();
    if (count > std::numeric_limits<qint16>::max())
        runtime::raise(runtime::error_number::Overflow);
    const runtime::LikePattern like(pattern);
    for (int i = start.Index() + step; i >= 1 && i <= count; i += step) {
        const TreeItem item = nodes.Item(i);
        if (!like.matches(item.Text()))
            continue;
        Q_EMIT statusText(QString());
        selection_.ShowNode(item, true);
        return true;
    }
    return false;
}

Hits CaptionSearch::allMatches() const {
    const auto like = std::make_shared<runtime::LikePattern>(m_strFind);
    Hits hits{HitSource::Captions, m_strFind, {}};
    // Not in the order of the items, which is that in which they were added.
    const items::TreeStore &store = tree_.nodes().store();
    for (auto slot = store.firstChild(items::TreeStore::Root); slot != 0;
         slot = store.nextInSubtree(slot, items::TreeStore::Root)) {
        const TreeItem item = tree_.nodes().item(slot);
        const QString caption = item.Text();
        if (like->matches(caption))
            hits.hits.push_back(hitAt(item, caption));
    }
    hits.findAgain = [like](const xml::Node &node, Part part) {
        const QString text = textOf(node, part);
        return like->matches(text)
                   ? std::vector<Hit>{{node.number(), part, 0, quint32(text.size())}}
                   : std::vector<Hit>();
    };
    return hits;
}

Hit CaptionSearch::hitAt(const TreeItem &item, const QString &caption) const {
    xml::Node node = selection_.GetDOMNode(item);
    // The item of an attribute that was added shows a copy of it.
    if (node.nodeType() == xml::NodeType::Attribute) {
        const xml::Node element = selection_.GetDOMNode(item.Parent());
        if (const xml::Node own = element.getAttributeNode(node.nodeName()))
            node = own;
    }
    for (const Part part : {Part::Value, Part::Name}) {
        if (caption == textOf(node, part))
            return {node.number(), part, 0, quint32(caption.size())};
    }
    return {node.number(), Part::Node, 0, 0};
}

} // namespace quillon::search
