#include "app/main_window/command_list.h"
#include "app/main_window/frm_main.h"
#include "platform/runtime/paths.h"
#include "platform/ui/error_boundary.h"

#include <QAction>
#include <QApplication>
#include <QSplitter>
#include <QStackedWidget>
#include <QThread>
#include <QTimer>

namespace quillon::app {

using ui::guarded;

namespace {

/// How long the page waits for what is under way, as a file that is being opened.
constexpr int UnderWayMs = 50;

} // namespace

void frmMain::connectFirstPage() {
    firstPage_ = new FirstPage(commandList(), runtime::programFolder() + QStringLiteral("/samples"),
                               editor_->tree.dragHandlers);
    rightSide_->addWidget(firstPage_);
    connect(firstPage_, &FirstPage::commandChosen, this,
            [this](const QString &command) { actions_.action(command)->trigger(); });
    connect(firstPage_, &FirstPage::fileChosen, this, [this](const QString &path) {
        guarded([&] { editor_->commands.mnuFileMRUFiles_Click(path); });
    });
    connect(firstPage_, &FirstPage::shownAgainChanged, this,
            [this](bool again) { editor_->settings.firstPage = again; });
    const auto showDocument = [this] { showRightSide(hsp); };
    connect(&editor_->loader, &document::DocumentLoader::documentOpened, this, showDocument);
    connect(&editor_->commands, &document::DocumentCommands::documentCreated, this, showDocument);
    connect(&editor_->commands, &document::DocumentCommands::captionChanged, this, [this] {
        if (!isEmpty())
            showRightSide(hsp);
    });
    connect(&editor_->commands, &document::DocumentCommands::cleared, this,
            [this] { QTimer::singleShot(0, this, &frmMain::showFirstPageIfEmpty); });
}

void frmMain::connectFirstScreen() {
    using document::DocumentLoader;
    firstScreen_ = std::make_unique<FirstScreen>(editor_->options, *tvw);
    connect(&editor_->loader, &DocumentLoader::opening, this, [this](const auto &head) {
        Q_EMIT opensLargeFile();
        if (!isVisible())
            return;
        // What is to come, in place of the first page.
        showRightSide(hsp);
        firstScreen_->show(head);
    });
    connect(&editor_->loader, &DocumentLoader::openingEnded, this, [this] {
        if (!firstScreen_->isShown())
            return;
        firstScreen_->hide();
        // Not behind a message, after which a text may be shown that is to be mended.
        QTimer::singleShot(0, this, &frmMain::showFirstPageIfEmpty);
    });
}

void frmMain::wantFirstPage(bool wanted) {
    if (std::exchange(editor_->settings.firstPage, wanted) == wanted)
        return;
    firstPage_->setShownAgain(wanted);
    if (wanted)
        QTimer::singleShot(0, this, &frmMain::showFirstPageIfEmpty);
    else
        showRightSide(hsp);
}

bool frmMain::isEmpty() const {
    return !editor_->state.showsAnything() && editor_->state.m_FileName.isEmpty();
}

void frmMain::showFirstPageIfEmpty() {
    if (!isEmpty() || !editor_->settings.firstPage)
        return;
    // The window is empty while another file is read, too.
    if (firstScreen_->isShown() || QThread::currentThread()->loopLevel() > 1) {
        QTimer::singleShot(UnderWayMs, this, &frmMain::showFirstPageIfEmpty);
        return;
    }
    guarded([this] {
        firstPage_->setRecentFiles(editor_->recentFiles.read(), editor_->recentFiles.gone());
    });
    firstPage_->setShownAgain(editor_->settings.firstPage);
    showRightSide(firstPage_);
}

void frmMain::showRightSide(QWidget *side) {
    if (rightSide_->currentWidget() == side)
        return;
    QWidget *const focus = QApplication::focusWidget();
    const bool hadFocus = focus && rightSide_->isAncestorOf(focus);
    if (side == firstPage_)
        firstSplitTop_ = splitTop();
    rightSide_->setCurrentWidget(side);
    if (side == hsp && wasShown_) {
        hsp->setGeometry(rightSide_->rect());
        splitRightSide();
    }
    if (!hadFocus)
        return;
    if (side == firstPage_)
        firstPage_->takeFocus();
    else
        tvw->setFocus();
}

} // namespace quillon::app
