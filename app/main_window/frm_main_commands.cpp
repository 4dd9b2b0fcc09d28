#include "app/main_window/bind_dialog.h"
#include "app/main_window/command_table.h"
#include "app/main_window/frm_main.h"
#include "app/main_window/open_window_list.h"
#include "app/main_window/window_front.h"
#include "platform/ui/dialogs.h"
#include "platform/ui/error_boundary.h"
#include "resources/candidate_texts.h"
#include "resources/texts.h"
#include "resources/window_texts.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPushButton>

namespace quillon::app {

using items::TreeItem;
using ui::guarded;

void frmMain::connectCommands() {
    // What is being typed into a caption belongs to the document that the command is about.
    actions_.beforeCommand = [this] { editor_->tree.endLabelEdit(); };
    for (const CommandRow &row : commandTable()) {
        controls::ActionSet::Run run;
        controls::ActionSet::Enabled enabled;
        if (row.run)
            run = [this, &row] { runCommand(row); };
        if (row.enabled)
            enabled = [this, &row] { return row.enabled(*editor_); };
        if (run || enabled)
            actions_.connectAction(row.entry.name, run, enabled);
        if (!row.button.key.isEmpty())
            actions_.addButton(row.entry.name, row.button);
    }
}

void frmMain::runCommand(const CommandRow &row) {
    tree::Selection &selection = editor_->selection;
    if (row.paneText != PaneText::IsLeftAlone) {
        // What has been put in by itself is taken back by itself.
        if (row.paneText == PaneText::IsTheStep && txtEdit->takeBackClosing())
            return;
        const bool isDone = row.paneText == PaneText::IsTheStep && selection.hasUnparsedText();
        if (!selection.mayLeavePane() || isDone)
            return;
    }
    row.run(*this);
}

void frmMain::setButtons(unsigned news) {
    for (const CommandRow &row : commandTable()) {
        if ((row.buttonNews & news) == 0)
            continue;
        const CommandRow::Applies applies = row.buttonEnabled ? row.buttonEnabled : row.enabled;
        actions_.setToolButtonEnabled(row.button.key, applies(*editor_));
    }
}

void frmMain::connectButtons() {
    const auto setAfter = [this](const auto *sender, auto signal, unsigned news) {
        connect(sender, signal, this, [this, news] { setButtons(news); });
    };
    using edit::UndoHistory;
    setAfter(&editor_->loader, &document::DocumentLoader::documentOpened, button_news::Document);
    setAfter(&editor_->commands, &document::DocumentCommands::documentCreated,
             button_news::Document);
    setAfter(&editor_->commands, &document::DocumentCommands::brokenShown, button_news::All);
    setAfter(&editor_->broken, &document::BrokenFile::edited,
             button_news::Recorded | button_news::History);
    setAfter(&editor_->selection, &tree::Selection::nodeShown, button_news::Selection);
    setAfter(&editor_->history, &UndoHistory::selectionRestored, button_news::Selection);
    setAfter(&editor_->history, &UndoHistory::recorded, button_news::Recorded);
    setAfter(&editor_->history, &UndoHistory::moved, button_news::History);
    // Copying lets the button paste, in a read-only document, too, where pasting does nothing.
    connect(&editor_->nodeCommands, &edit::NodeCommands::pasteEnabled, this,
            [this] { actions_.setToolButtonEnabled(u"paste", true); });
}

void frmMain::connectWindow() {
    connect(editor_.get(), &Editor::statusText, this, &frmMain::showStatus);
    const document::DocumentCommands &commands = editor_->commands;
    connect(&commands, &document::DocumentCommands::captionChanged, this, &frmMain::showCaption);
    connect(&commands, &document::DocumentCommands::cleared, this, &frmMain::clear);
    connect(&editor_->view, &tools::ViewCommands::fontChosen, this, &frmMain::takeFont);
    connect(txtEdit, &controls::TextBox::Change, editor_.get(),
            [this] { guarded([this] { editor_->textEditing.txtEdit_Change(); }); });
    connect(ie, &browser::Browser::statusText, editor_.get(), &Editor::statusText);
    connect(ie, &browser::Browser::clicked, editor_.get(),
            [this](const QString &id) { guarded([&] { editor_->preview.m_doc_onclick(id); }); });
    connect(ie, &browser::Browser::moreWanted, editor_.get(), [this](quint32 first, bool atEnd) {
        using End = preview::ShownPart::End;
        guarded([&] { editor_->preview.showMore(first, atEnd ? End::Last : End::First); });
    });
    const auto selectByPath = [this] { guarded([this] { editor_->pathQuery.SelectByPath(); }); };
    connect(cboPath, &controls::PathBox::Enter, this, selectByPath);
    connect(cboPath, &controls::PathBox::Click, this, selectByPath);
    cboPath->propose = [this](const QString &typed) {
        return editor_->pathCompletion.proposals(typed);
    };
    menus_->onMenuOpening(u"mnuFile", [this] { showRecentFiles(); });
    menus_->onMenuOpening(u"mnuWindow", [this] { showWindows(); });
    connect(&editor_->windows, &system::OpenWindows::calledToFront, this,
            [this] { bringToFront(*this); });
    tvw->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(tvw, &QWidget::customContextMenuRequested, this, &frmMain::showTreeMenu);
    validationList_ =
        new ValidationList(this, [this](const xml::Node &node) { showFaultyNode(node); });
    connect(&editor_->validation, &validation::Validation::errorsChanged, this,
            &frmMain::showValidationErrors);
    connect(validationButton_, &QPushButton::clicked, validationList_, &QWidget::show);
    connect(schemaButton_, &QPushButton::clicked, this, &frmMain::mnuToolSchemas_Click);
    connect(&editor_->paneSyntax, &validation::PaneSyntax::checked, this,
            &frmMain::showSyntaxFault);
    connectPanel();
    connectCandidates();
    connectProposals();
    connectPane();
}

void frmMain::connectPanel() {
    connect(panel_, &ResultPanel::focusGivenUp, tvw, [this] { tvw->setFocus(); });
    // The keyboard stays with the dialog that has asked for the list.
    connect(&editor_->findAndReplace, &search::FindAndReplace::listed, panel_, &QWidget::show);
    connect(panel_, &ResultPanel::entered, this,
            [this](bool inPane) { inPane ? txtEdit->setFocus() : tvw->setFocus(); });
    menus_->onMenuOpening(
        u"mnuView", [this] { actions_.action(u"mnuViewPanel")->setChecked(panel_->isVisible()); });
}

void frmMain::connectCandidates() {
    connect(candidates_, &CandidatePanel::focusGivenUp, tvw, [this] { tvw->setFocus(); });
    menus_->onMenuOpening(u"mnuView", [this] {
        actions_.action(u"mnuViewCandidates")->setChecked(candidates_->isVisible());
    });
    using Way = CandidatePanel::Way;
    constexpr std::tuple<QStringView, QStringView, Way> Menus[] = {
        {u"treeMenuChildren", u"treeMenuChildrenEntries", Way::Child},
        {u"treeMenuAhead", u"treeMenuAheadEntries", Way::Ahead},
        {u"treeMenuBehind", u"treeMenuBehindEntries", Way::Behind},
        {u"treeMenuAttributes", u"treeMenuAttributesEntries", Way::Attribute},
    };
    for (const auto &[menu, entries, way] : Menus)
        menus_->onMenuOpening(menu, [this, entries, way] { showCandidates(entries, way); });
}

void frmMain::showCandidates(QStringView entries, CandidatePanel::Way way) {
    constexpr std::size_t MostEntries = 30;
    std::vector<candidates::Entry> allowed = candidates_->entries(way).entries;
    std::erase_if(allowed, [](const candidates::Entry &entry) { return !entry.isAllowed; });
    std::vector<controls::ActionMenus::Element> elements;
    for (const candidates::Entry &entry : allowed) {
        if (elements.size() == MostEntries)
            break;
        elements.push_back(
            {entry.isMandatory ? entry.name + QStringLiteral(" !") : entry.name, {}});
    }
    if (allowed.size() > MostEntries)
        elements.push_back(
            {resources::candidate_texts::MoreEntries.toString().arg(allowed.size() - MostEntries),
             {}});
    // Element 0 says that there are none.
    const auto run = [this, way, allowed](int index, const QString &) {
        const auto at = std::size_t(index) - 1;
        if (at < MostEntries)
            candidates_->insert(allowed[at], way);
        else
            candidates_->open(way);
    };
    menus_->setElements(entries, elements, run, 1);
}

void frmMain::mnuViewNextHit_Click() {
    if (!editor_->paneSyntax.goTo())
        panel_->navigation().mnuViewNextHit_Click();
}

void frmMain::mnuViewPreviousHit_Click() {
    if (!editor_->paneSyntax.goTo())
        panel_->navigation().mnuViewPreviousHit_Click();
}

void frmMain::mnuViewPanel_Click(bool show) {
    show ? panel_->open() : panel_->shut();
}

void frmMain::mnuViewCandidates_Click(bool show) {
    show ? candidates_->open() : candidates_->shut();
}

void frmMain::mnuViewLive_Click(bool on) {
    editor_->settings.liveValidation = on;
    editor_->live.setOn(on);
}

std::vector<std::pair<QWidget *, std::function<void()>>> frmMain::parts() {
    const auto itself = [](QWidget *widget) {
        return std::pair<QWidget *, std::function<void()>>(
            widget, [widget] { widget->setFocus(Qt::TabFocusReason); });
    };
    return {itself(tvw),
            itself(textPane_),
            itself(ie),
            {firstPage_, [this] { firstPage_->takeFocus(); }},
            {candidates_, [this] { candidates_->takeFocus(); }},
            {panel_, [this] { panel_->takeFocus(); }},
            itself(cboPath)};
}

void frmMain::focusPart(int step) {
    const auto all = parts();
    const QWidget *const focus = QApplication::focusWidget();
    const auto count = int(all.size());
    int at = step > 0 ? -1 : count;
    for (int part = 0; part < count; ++part) {
        QWidget *const widget = all[std::size_t(part)].first;
        if (focus && (widget == focus || widget->isAncestorOf(focus)))
            at = part;
    }
    for (int i = 0; i < count; ++i) {
        at = (at + step + count) % count;
        const auto &[widget, takeFocus] = all[std::size_t(at)];
        // A splitter puts what it has no room for beside what is to be seen.
        if (widget->isVisible() && widget->parentWidget()->rect().intersects(widget->geometry()))
            return takeFocus();
    }
}

void frmMain::mnuEditReplace_Click() {
    if (!replaceDialog_)
        replaceDialog_ = new ReplaceDialog(*editor_, this);
    replaceDialog_->showForInput();
}

void frmMain::mnuToolSchemas_Click() {
    if (!schemaDialog_)
        schemaDialog_ = new SchemaDialog(*editor_, this);
    schemaDialog_->show();
    schemaDialog_->raise();
    schemaDialog_->activateWindow();
}

void frmMain::mnuToolBindSchema_Click() {
    BindDialog(*editor_, this).exec();
}

void frmMain::showCaption(QString caption) {
    // Written once, Qt takes it for the place of a mark of its own.
    const QString mark = QStringLiteral("[*]");
    setWindowTitle(caption.replace(mark, mark + mark));
}

void frmMain::clear() {
    setButtons(button_news::All);
}

void frmMain::showTreeMenu(const QPoint &position) {
    const TreeItem hit = tvw->HitTest(position);
    // The press on another item has asked about text in the pane, and the answer was to stay.
    if (!hit || (editor_->selection.hasUnparsedText() && hit != editor_->tree.SelectedItem()))
        return;
    // The press of the button has shown it already, unless it was selected but not shown.
    if (hit != editor_->tree.SelectedItem() || editor_->pane.shownItem != hit)
        guarded([&] { editor_->selection.ShowNode(hit, true); });
    actions_.action(u"treeMenu")->menu()->popup(tvw->viewport()->mapToGlobal(position));
}

void frmMain::showFaultyNode(const xml::Node &node) {
    // The document may have been undone or edited since.
    const xml::Node now = editor_->state.m_DOM.nodeByNumber(node.number());
    editor_->selection.ShowNode(editor_->builder.itemOf(now), true);
}

void frmMain::showValidationErrors() {
    const std::vector<validation::ValidationError> &errors = editor_->validation.errors();
    validationList_->setErrors(errors);
    const QStringView text = editor_->validation.hasMoreErrors()
                                 ? resources::texts::ValidationListButtonMore
                                 : resources::texts::ValidationListButton;
    validationButton_->setText(text.toString().arg(errors.size()));
    validationButton_->setVisible(!errors.empty());
}

void frmMain::mnuWindowTileH_Click() {
    ui::ignoringErrors([this] { companion_.execute(QStringLiteral("TILE_VERTICAL")); });
}

void frmMain::showWindows() {
    const OpenWindowList list(editor_->windows);
    std::vector<controls::ActionMenus::Element> elements;
    for (int at = 0; at < std::min(list.count(), OpenWindowList::MostInMenu); ++at)
        elements.push_back({QStringLiteral("&%1 %2").arg(at + 1).arg(
                                QString(list.name(at)).replace(u'&', QStringLiteral("&&"))),
                            {}});
    menus_->setElements(
        u"mnuWindowList", elements,
        [this, list](int at, const QString &) {
            if (!list.callToFront(at))
                bringToFront(*this);
        },
        0);
    actions_.action(u"mnuWindowMore")->setVisible(list.count() > OpenWindowList::MostInMenu);
}

void frmMain::mnuWindowMore_Click() {
    const OpenWindowList list(editor_->windows);
    const auto chosen =
        ui::dialogs().chooseOne(resources::window_texts::Choose.toString(), list.names());
    if (chosen && !list.callToFront(*chosen))
        bringToFront(*this);
}

} // namespace quillon::app
