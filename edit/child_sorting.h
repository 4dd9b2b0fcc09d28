#pragma once

#include "platform/ui/long_work.h"
#include "state/document_state.h"
#include "tree/node_relocation.h"
#include "tree/selection.h"

#include <QObject>

namespace quillon::edit {

/// What the children of an element are to be sorted by.
struct SortOrder {
    enum class By { Name, Attribute, Path };

    By by = By::Name;
    /// The name of the attribute, or an XPath expression whose context is each of the children.
    QString key;
    bool isDescending = false;
};

/// Sorts the child elements of the selected element. A comment or instruction goes with the element
/// behind it, or, where it follows one on the same line, with that one; what is behind the last
/// element stays there.
///
/// Values that are numbers are compared as such and come ahead of texts, which are sorted as
/// Japanese. Elements without a value are last in either direction, and those of equal values keep
/// their order.
class ChildSorting : public QObject {
    Q_OBJECT

public:
    ChildSorting(const state::DocumentState &state, tree::TreeBuilder &builder,
                 tree::NodeRemoval &removal, tree::Selection &selection, items::Tree &tree,
                 ui::LongWork &longWork);

    /// Whether the selected element has something to be sorted; a message box says why not. An
    /// element with text among its children has not: its sentences would be taken apart.
    bool maySort() const;
    /// Sorts as one change. Nothing happens where maySort() says no, and nothing but a text in the
    /// status bar where all stands in that order. Raises what is wrong with an expression.
    void sort(const SortOrder &order);

Q_SIGNALS:
    void documentModified();
    void statusText(const QString &text);

private:
    struct Group;

    std::vector<Group> groups(const xml::Node &parent) const;
    void findKeys(std::vector<Group> &groups, const SortOrder &order) const;

    const state::DocumentState &state_;
    tree::TreeBuilder &builder_;
    tree::Selection &selection_;
    items::Tree &tree_;
    tree::NodeRelocation relocation_;
    ui::LongWork &longWork_;
};

} // namespace quillon::edit
