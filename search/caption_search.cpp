#include "search/caption_search.h"

#include "platform/runtime/error.h"
#include "platform/runtime/like.h"
#include "platform/ui/dialogs.h"
#include "resources/texts.h"

#include <limits>

namespace quillon::search {

using items::TreeItem;
namespace texts = resources::texts;

CaptionSearch::CaptionSearch(items::Tree &tree, tree::Selection &selection)
    : tree_(tree), selection_(selection) {}

void CaptionSearch::mnuEditFind_Click() {
    m_strFind = ui::dialogs().inputText(texts::FindPrompt.toString());
    if (!m_strFind.isEmpty())
        mnuEditFindNext_Click();
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

} // namespace quillon::search
