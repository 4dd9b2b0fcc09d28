#include "view/controls/tree_accessible.h"

#include "resources/live_texts.h"
#include "resources/node_texts.h"
#include "view/controls/tree_view.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QWindow>

namespace quillon::controls {

namespace {

/// One row of the view. The tree deletes it before the view is gone.
class RowAccessible : public QAccessibleInterface,
                      public QAccessibleTableCellInterface,
                      public QAccessibleActionInterface {
public:
    RowAccessible(TreeView &view, const items::TreeItem &item) : view_(view), item_(item) {}

    int row() const { return view_.rows().rowOf(view_.tree().nodes().slotOf(item_)); }

    bool isValid() const override { return item_ && row() >= 0; }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return view_.window()->windowHandle(); }
    QAccessibleInterface *parent() const override {
        return QAccessible::queryAccessibleInterface(&view_);
    }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }

    QString text(QAccessible::Text kind) const override {
        switch (kind) {
        case QAccessible::Name:
            return item_.Text();
        case QAccessible::Description:
            return kindAndLevel() + faults();
        default:
            return {};
        }
    }
    void setText(QAccessible::Text, const QString &) override {}
    QAccessible::Role role() const override { return QAccessible::TreeItem; }
    QRect rect() const override {
        if (!isValid())
            return {};
        const QRect inViewport = view_.visualRect(view_.tree().nodes().indexOf(item_));
        return {view_.viewport()->mapToGlobal(inViewport.topLeft()), inViewport.size()};
    }
    QAccessible::State state() const override;

    void *interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableCellInterface)
            return static_cast<QAccessibleTableCellInterface *>(this);
        if (type == QAccessible::ActionInterface)
            return static_cast<QAccessibleActionInterface *>(this);
        return nullptr;
    }

    bool isSelected() const override { return view_.tree().isSelected(item_); }
    QList<QAccessibleInterface *> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface *> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return 0; }
    int rowIndex() const override { return isValid() ? row() : -1; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface *table() const override { return parent(); }

    QStringList actionNames() const override {
        QStringList names{pressAction()};
        if (item_.Child())
            names << toggleAction();
        return names;
    }
    void doAction(const QString &name) override {
        if (!isValid())
            return;
        if (name == pressAction())
            view_.tree().selectAsUser(item_);
        else if (name == toggleAction())
            view_.setExpandedAsUser(item_, !item_.Expanded());
    }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    QString kindAndLevel() const {
        const items::Nodes &nodes = view_.tree().nodes();
        const QString kind = nodes.kind(item_);
        return kind.isEmpty()
                   ? kind
                   : resources::node_texts::KindAndLevel.toString().arg(
                         kind, QString::number(nodes.store().level(nodes.slotOf(item_)) + 1));
    }

    /// What the mark on the icon says.
    QString faults() const {
        const items::Nodes &nodes = view_.tree().nodes();
        const QString reasons = nodes.markReasons(item_);
        if (!reasons.isEmpty())
            return u' ' + QString(reasons).replace(u'\n', u' ');
        const bool isToldHere = !item_.Expanded() && nodes.markBelow(item_) != items::Mark::None;
        return isToldHere ? u' ' + resources::live_texts::FaultBelow.toString() : QString();
    }

    TreeView &view_;
    items::TreeItem item_;
};

QAccessible::State RowAccessible::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const QRect shown = view_.visualRect(view_.tree().nodes().indexOf(item_));
    state.selectable = true;
    state.multiSelectable = true;
    state.extSelectable = true;
    state.focusable = true;
    state.editable = true;
    state.selected = isSelected();
    state.focused = view_.hasFocus() && view_.focusItem() == item_;
    state.expandable = static_cast<bool>(item_.Child());
    state.expanded = state.expandable && item_.Expanded();
    state.offscreen = !view_.viewport()->rect().intersects(shown);
    state.invisible = !view_.isVisible() || state.offscreen;
    return state;
}

class TreeAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit TreeAccessible(TreeView *view)
        : QAccessibleWidget(view, QAccessible::Tree), view_(*view) {}
    ~TreeAccessible() override {
        forget([](const QAccessibleInterface &) { return true; });
    }

    void *interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableInterface)
            return static_cast<QAccessibleTableInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.multiSelectable = true;
        state.extSelectable = true;
        return state;
    }
    int childCount() const override { return view_.rows().count(); }
    QAccessibleInterface *child(int index) const override {
        return accessibleOf(view_.rows().at(index));
    }
    QAccessibleInterface *childAt(int x, int y) const override {
        const QPoint position = view_.viewport()->mapFromGlobal(QPoint(x, y));
        if (!view_.viewport()->rect().contains(position))
            return nullptr;
        return accessibleOf(items::Nodes::slotAt(view_.indexAt(position)));
    }
    int indexOfChild(const QAccessibleInterface *child) const override {
        const auto *row = dynamic_cast<const RowAccessible *>(child);
        return row != nullptr && row->isValid() ? row->row() : -1;
    }
    QAccessibleInterface *focusChild() const override {
        return view_.hasFocus() ? accessibleOf(view_.tree().nodes().slotOf(view_.focusItem()))
                                : QAccessibleWidget::focusChild();
    }

    QAccessibleInterface *caption() const override { return nullptr; }
    QAccessibleInterface *summary() const override { return nullptr; }
    QAccessibleInterface *cellAt(int row, int column) const override {
        return column == 0 ? child(row) : nullptr;
    }
    int rowCount() const override { return childCount(); }
    int columnCount() const override { return 1; }
    QString columnDescription(int) const override { return {}; }
    QString rowDescription(int) const override { return {}; }

    int selectedCellCount() const override { return selectedRowCount(); }
    QList<QAccessibleInterface *> selectedCells() const override {
        QList<QAccessibleInterface *> cells;
        for (const int row : selectedRows())
            cells << child(row);
        return cells;
    }
    int selectedRowCount() const override { return view_.tree().selectedCount(); }
    QList<int> selectedRows() const override {
        // In one pass, as there may be very many.
        QList<int> rows;
        const int count = selectedRowCount();
        for (int row = 0; rows.size() < count && row < rowCount(); ++row) {
            if (isRowSelected(row))
                rows << row;
        }
        return rows;
    }
    bool isRowSelected(int row) const override { return view_.tree().isSelected(itemAt(row)); }
    /// Beside what is selected, as the interface has it; a row's action selects it alone.
    bool selectRow(int row) override {
        const items::TreeItem item = itemAt(row);
        if (item && !view_.tree().isSelected(item))
            toggle(item);
        return !item.isNothing();
    }
    /// False for the last one: one item of the tree is always selected.
    bool unselectRow(int row) override {
        const items::TreeItem item = itemAt(row);
        if (view_.tree().isSelected(item))
            toggle(item);
        return item && !view_.tree().isSelected(item);
    }
    // The only column cannot be selected.
    int selectedColumnCount() const override { return 0; }
    QList<int> selectedColumns() const override { return {}; }
    bool isColumnSelected(int) const override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectColumn(int) override { return false; }

    void modelChange(QAccessibleTableModelChangeEvent *event) override {
        switch (event->modelChangeType()) {
        case QAccessibleTableModelChangeEvent::ModelReset:
            forget([](const QAccessibleInterface &) { return true; });
            break;
        case QAccessibleTableModelChangeEvent::RowsRemoved:
            forget([](const QAccessibleInterface &row) { return !row.isValid(); });
            break;
        default:
            break;
        }
    }

private:
    items::TreeItem itemAt(int row) const {
        return view_.tree().nodes().item(view_.rows().at(row));
    }
    void toggle(const items::TreeItem &item) {
        view_.tree().asUserGesture([&] { view_.tree().toggleSelected(item); });
    }

    QAccessibleInterface *accessibleOf(items::TreeStore::Slot slot) const {
        if (slot == 0)
            return nullptr;
        if (const auto known = ids_.constFind(slot); known != ids_.constEnd()) {
            // The slot may have held an item of an earlier content.
            QAccessibleInterface *row = QAccessible::accessibleInterface(*known);
            if (row != nullptr && row->isValid())
                return row;
            QAccessible::deleteAccessibleInterface(*known);
        }
        auto *row = new RowAccessible(view_, view_.tree().nodes().item(slot));
        ids_.insert(slot, QAccessible::registerAccessibleInterface(row));
        return row;
    }

    template <typename Predicate>
    void forget(Predicate &&isGone) {
        ids_.removeIf([&](auto entry) {
            QAccessibleInterface *row = QAccessible::accessibleInterface(*entry);
            const bool gone = row == nullptr || isGone(*row);
            if (gone && row != nullptr)
                QAccessible::deleteAccessibleInterface(*entry);
            return gone;
        });
    }

    TreeView &view_;
    /// The rows asked for so far, by slot.
    mutable QHash<items::TreeStore::Slot, QAccessible::Id> ids_;
};

QAccessibleInterface *makeAccessible(const QString &className, QObject *object) {
    auto *view = qobject_cast<TreeView *>(object);
    if (view == nullptr || className != QLatin1StringView(TreeView::staticMetaObject.className()))
        return nullptr;
    return new TreeAccessible(view);
}

} // namespace

void installTreeAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(makeAccessible);
        return true;
    }();
    Q_UNUSED(installed);
}

} // namespace quillon::controls
