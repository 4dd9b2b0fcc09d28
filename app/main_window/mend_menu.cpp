#include "app/main_window/mend_menu.h"

#include "platform/ui/error_boundary.h"
#include "resources/live_texts.h"
#include "view/controls/fault_mark.h"

#include <QAction>
#include <QMenu>

#include <algorithm>

namespace quillon::app {

namespace texts = resources::live_texts;
using ui::guarded;
using validation::Mend;

namespace {

/// As much of a sentence as there is room for in a menu.
constexpr qsizetype ShownLength = 80;

QString asCaption(QString text) {
    if (text.size() > ShownLength)
        text = text.left(ShownLength - 1) + u'…';
    return text.replace(u'&', QStringLiteral("&&"));
}

} // namespace

MendMenu::MendMenu(Editor &editor, controls::TreeView &tree, controls::TextBox &pane,
                   ResultPanel &panel, QWidget *window)
    : QObject(window), editor_(editor), tree_(tree), pane_(pane), panel_(panel), window_(window) {
    connect(&panel_, &ResultPanel::mendsRequested, this, &MendMenu::openForRow);
}

void MendMenu::open() {
    if (panel_.hasFocusInFaults())
        return panel_.askForMendsOfCurrentRow();
    if (pane_.hasFocus()) {
        std::vector<quint32> nodes;
        for (const ui::TextMark &mark : pane_.marksAtCaret()) {
            if (std::ranges::find(nodes, mark.subject) == nodes.end())
                nodes.push_back(mark.subject);
        }
        if (!nodes.empty())
            return openAt(nodes, pane_.caretPoint());
    }
    const QRect row = tree_.visualRect(tree_.currentIndex());
    openAt({editor_.selection.GetSelectedDOMNode().number()},
           pane_.hasFocus() ? pane_.caretPoint() : tree_.viewport()->mapToGlobal(row.bottomLeft()));
}

void MendMenu::openForRow(int row, const QPoint &point) {
    const std::size_t place = editor_.faults.place(row);
    if (place < editor_.live.faults().size())
        openAt({editor_.live.faults()[place].node}, point);
}

void MendMenu::openAt(const std::vector<quint32> &nodes, const QPoint &point) {
    auto *menu = new QMenu(window_);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setAccessibleName(texts::MendsName.toString());
    std::vector<Mend> mends;
    for (const quint32 number : nodes) {
        for (const std::size_t at : editor_.live.faultsAt(number)) {
            const validation::Fault &fault = editor_.live.faults()[at];
            const bool isSyntax = fault.kind == validation::FaultKind::Syntax;
            QAction *title = menu->addAction(asCaption(fault.sentence));
            title->setIcon(
                controls::faultIcon(isSyntax ? items::Mark::Broken : items::Mark::Invalid));
            title->setEnabled(false);
        }
        if (!editor_.live.faultsAt(number).empty())
            guarded([&] {
                for (Mend &mend : editor_.mending.mendsAt(editor_.state.m_DOM.nodeByNumber(number)))
                    if (std::ranges::find(mends, mend) == mends.end())
                        mends.push_back(std::move(mend));
            });
    }
    if (menu->isEmpty()) {
        delete menu;
        Q_EMIT editor_.statusText(texts::NoFaultHere.toString());
        return;
    }
    menu->addSeparator();
    if (mends.empty())
        menu->addAction(texts::NoMends.toString())->setEnabled(false);
    for (const Mend &mend : mends)
        menu->addAction(asCaption(mend.caption), this,
                        [this, mend] { guarded([&] { editor_.mending.mend(mend); }); });
    menu->popup(point);
    // The first mend, so that Enter carries it out.
    for (QAction *action : menu->actions()) {
        if (action->isEnabled() && !action->isSeparator()) {
            menu->setActiveAction(action);
            break;
        }
    }
}

} // namespace quillon::app
