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

struct MendMenu::Entries {
    struct Title {
        QString sentence;
        items::Mark mark;
    };
    std::vector<Title> titles;
    std::vector<Mend> mends;
    std::vector<xml::SyntaxMend> textMends;
};

MendMenu::MendMenu(Editor &editor, controls::TreeView &tree, controls::TextBox &pane,
                   ResultPanel &panel, QWidget *window)
    : QObject(window), editor_(editor), tree_(tree), pane_(pane), panel_(panel), window_(window) {
    connect(&panel_, &ResultPanel::mendsRequested, this, &MendMenu::openForRow);
    connect(&pane_, &controls::TextBox::marksClicked, this, &MendMenu::openForMarks);
}

void MendMenu::open() {
    if (editor_.state.isBroken) {
        editor_.broken.goToFault();
        return openForSyntax(pane_.caretPoint());
    }
    if (panel_.hasFocusInFaults())
        return panel_.askForMendsOfCurrentRow();
    const QRect row = tree_.visualRect(tree_.currentIndex());
    const bool isInPane = pane_.hasFocus();
    const QPoint point =
        isInPane ? pane_.caretPoint() : tree_.viewport()->mapToGlobal(row.bottomLeft());
    const std::vector<ui::TextMark> marks =
        isInPane ? pane_.marksAtCaret() : std::vector<ui::TextMark>();
    // Text that is no XML has one fault at a time, wherever the caret is.
    if (editor_.paneSyntax.scope())
        openForSyntax(point);
    else if (!marks.empty())
        openForMarks(marks, point);
    else
        openAt({editor_.selection.GetSelectedDOMNode().number()}, point);
}

void MendMenu::openForRow(int row, const QPoint &point) {
    const std::size_t place = editor_.faults.place(row);
    const std::vector<validation::Fault> &faults = editor_.live.faults();
    if (place >= faults.size())
        return;
    if (faults[place].kind == validation::FaultKind::Syntax)
        openForSyntax(point);
    else
        openAt({faults[place].node}, point);
}

void MendMenu::openForMarks(const std::vector<ui::TextMark> &marks, const QPoint &point) {
    if (std::ranges::any_of(marks, &ui::TextMark::isBroken))
        return openForSyntax(point);
    std::vector<quint32> nodes;
    for (const ui::TextMark &mark : marks) {
        if (std::ranges::find(nodes, mark.subject) == nodes.end())
            nodes.push_back(mark.subject);
    }
    openAt(nodes, point);
}

void MendMenu::openForSyntax(const QPoint &point) {
    Entries entries;
    if (editor_.state.isBroken) {
        guarded([&] { entries.textMends = editor_.broken.mends(); });
        if (editor_.broken.fault())
            entries.titles.push_back({editor_.broken.fault()->at.sentence, items::Mark::Broken});
        return show(entries, point);
    }
    guarded([&] { entries.textMends = editor_.paneSyntax.mends(); });
    if (editor_.paneSyntax.fault())
        entries.titles.push_back({editor_.paneSyntax.told(), items::Mark::Broken});
    show(entries, point);
}

void MendMenu::openAt(const std::vector<quint32> &nodes, const QPoint &point) {
    Entries entries;
    for (const quint32 number : nodes)
        addOfNode(number, entries);
    show(entries, point);
}

void MendMenu::addOfNode(quint32 number, Entries &entries) {
    const std::vector<std::size_t> faults = editor_.live.faultsAt(number);
    for (const std::size_t at : faults) {
        const validation::Fault &fault = editor_.live.faults()[at];
        if (fault.kind != validation::FaultKind::Syntax)
            entries.titles.push_back({fault.sentence, items::Mark::Invalid});
    }
    if (faults.empty())
        return;
    guarded([&] {
        for (Mend &mend : editor_.mending.mendsAt(editor_.state.m_DOM.nodeByNumber(number)))
            if (std::ranges::find(entries.mends, mend) == entries.mends.end())
                entries.mends.push_back(std::move(mend));
    });
}

void MendMenu::show(const Entries &entries, const QPoint &point) {
    if (entries.titles.empty()) {
        Q_EMIT editor_.statusText(texts::NoFaultHere.toString());
        return;
    }
    auto *menu = new QMenu(window_);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setAccessibleName(texts::MendsName.toString());
    for (const Entries::Title &title : entries.titles) {
        QAction *action = menu->addAction(asCaption(title.sentence));
        action->setIcon(controls::faultIcon(title.mark));
        action->setEnabled(false);
    }
    menu->addSeparator();
    if (entries.mends.empty() && entries.textMends.empty())
        menu->addAction(texts::NoMends.toString())->setEnabled(false);
    for (const xml::SyntaxMend &mend : entries.textMends)
        menu->addAction(asCaption(mend.title), this, [this, mend] {
            guarded([&] {
                if (editor_.state.isBroken)
                    editor_.broken.mend(mend);
                else
                    editor_.paneSyntax.mend(mend);
            });
        });
    for (const Mend &mend : entries.mends)
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
