#pragma once

#include "app/editor.h"
#include "app/main_window/candidate_panel.h"
#include "app/main_window/first_page.h"
#include "app/main_window/first_screen.h"
#include "app/main_window/help_desk.h"
#include "app/main_window/mend_menu.h"
#include "app/main_window/replace_dialog.h"
#include "app/main_window/result_panel.h"
#include "app/main_window/schema_button.h"
#include "app/main_window/schema_dialog.h"
#include "app/main_window/tree_keys.h"
#include "app/main_window/validation_list.h"
#include "app/main_window/zoom.h"
#include "platform/system/companion_link.h"
#include "tools/tree_printing.h"
#include "view/browser/browser.h"
#include "view/controls/action_menus.h"
#include "view/controls/action_set.h"
#include "view/controls/desktop_clipboard.h"
#include "view/controls/path_box.h"
#include "view/controls/progress_box.h"
#include "view/controls/text_box.h"
#include "view/controls/text_pane.h"
#include "view/controls/theme.h"
#include "view/controls/tree_view.h"

#include <QMainWindow>

#include <functional>
#include <memory>

class QLabel;
class QPushButton;
class QStackedWidget;
class QSplitter;
class QToolBar;

namespace quillon::app {

struct CommandRow;

/// The main window. It puts the controls together, connects the subsystems to them and holds no
/// logic of theirs. It deletes itself when it has been closed.
class frmMain : public QMainWindow {
    Q_OBJECT

public:
    explicit frmMain(Environment environment = Environment::ofProgram());
    ~frmMain() override;

    bool OpenFile(const QString &path) { return editor_->loader.OpenFile(path); }
    void UpdateStatus(const QString &path) { editor_->commands.UpdateStatus(path); }
    void ClearStatus() { editor_->commands.ClearStatus(); }

    /// What is to be done when the session ends and nobody can be asked any more: unsaved changes
    /// are kept for the next start.
    void endSession();

    void mnuFilePrintTree_Click() { treePrinting_->mnuFilePrintTree_Click(); }
    void mnuFilePrintPreview_Click();
    void mnuFilePrintTreePreview_Click() { treePrinting_->mnuFilePrintTreePreview_Click(this); }
    void mnuEditReplace_Click();
    void mnuEditFormat_Click();
    void mnuEditEncoding_Click();
    void mnuToolOption_Click();
    void mnuNodeSort_Click();
    void mnuToolSchemas_Click();
    void mnuToolBindSchema_Click();
    void mnuWindowTileH_Click();
    /// Asks which of all windows is to come to the front.
    void mnuWindowMore_Click();
    void mnuViewPanel_Click(bool show);
    void mnuViewCandidates_Click(bool show);
    void mnuViewPropose_Click(bool propose);
    /// Lists the values that the selected node may have, in the pane.
    void mnuNodeChooseValue_Click();
    /// Selects the node that begins on a line of the file, or last ahead of it.
    void showLine(quint32 line);
    /// Leads to what is wrong with text that the pane alone has, where there is any; else to the
    /// next (previous) hit or fault of the list.
    void mnuViewNextHit_Click();
    void mnuViewPreviousHit_Click();
    void mnuViewLive_Click(bool on);
    /// Shows all windows in that theme.
    void mnuViewTheme_Click(controls::ThemeMode mode);
    void mnuNodeMend_Click() { mendMenu_->open(); }
    void mnuPaneWrap_Click(bool on);
    void mnuPaneBlanks_Click(bool on);
    void mnuPaneFileLines_Click(bool on);
    void mnuPaneClose_Click(bool on);
    /// Goes from the place of the caret in the pane to the item in the tree, or back.
    void mnuPaneJump_Click();
    /// Gives the keyboard to the next part of the window, or with -1 to the one before: tree, pane,
    /// preview, candidates, panel, path box, and round again. Parts that are not to be seen are
    /// left out.
    void focusPart(int step);

    Editor &editor() { return *editor_; }
    CandidatePanel &candidates() { return *candidates_; }
    /// Shows the first page while there is nothing else to show, if the user wants it.
    void showFirstPageIfEmpty();
    HelpDesk &help() { return *help_; }
    controls::TextBox &textBox() { return *txtEdit; }
    Zoom &zoom() { return *zoom_; }
    controls::ActionSet &actions() { return actions_; }

Q_SIGNALS:
    /// A file is to be opened that takes its time: the window can be shown with what it begins
    /// with.
    void opensLargeFile();

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    static constexpr int TwipsPerPixel = 15;

    void Form_Initialize();
    void Form_Load();
    void Form_Unload();
    /// What every end of the window has in common.
    void leave();

    /// The window's handle is known outside, so it must not change.
    void keepHandle();
    void layOut();
    void fillToolBar();
    void nameForAccessibility();

    void connectCommands();
    void connectButtons();
    void connectWindow();
    void connectPanel();
    void connectCandidates();
    /// Fills a menu with what may be inserted at the selected node.
    void showCandidates(QStringView entries, CandidatePanel::Way way);
    void connectProposals();
    void connectPrinting();
    void connectPane();
    /// Runs a command unless the user keeps text in the pane that it would take away.
    void runCommand(const CommandRow &row);
    /// Sets the buttons that go by some news, of `button_news`.
    void setButtons(unsigned news);

    settings::Placement placement() const;
    void place(const settings::Placement &placement);
    void takeFont(const QString &name, qint16 size);
    void takePaneSettings();
    /// Shows tree, pane, preview and panels in a font, as large as the zoom says.
    void showZoomed(const QString &fontName, qint16 fontSize);
    void showExternalEditors();
    /// Has the menu say which theme is in force.
    void showThemeMode();
    void showRecentFiles();
    void showWindows();
    void showTreeMenu(const QPoint &position);
    void showValidationErrors();
    /// The parts that focusPart() goes through, with what gives each the keyboard.
    std::vector<std::pair<QWidget *, std::function<void()>>> parts();
    void connectFirstPage();
    void connectFirstScreen();
    void wantFirstPage(bool wanted);
    void showRightSide(QWidget *side);
    bool isEmpty() const;
    /// Where the splitter of pane and preview stands, or is to stand once it is seen; in pixels.
    int splitTop() const;
    void splitRightSide();
    void showFaultyNode(const xml::Node &node);

    void showCaption(QString caption);
    void showStatus(const QString &text);
    void showSyntaxFault();
    /// Shows that there is no document any more.
    void clear();
    QString handle() const;

    /// Where the splitters are to stand once there is a window to split, in pixels.
    int firstSplitLeft_ = 0;
    int firstSplitTop_ = 0;
    bool wasShown_ = false;
    controls::ActionSet actions_;

    QToolBar *tbr;
    QToolBar *tbrMove;
    QWidget *picPath;
    controls::PathBox *cboPath;
    QSplitter *vsp;
    QSplitter *hsp;
    /// At the right of the tree: either the pane and the preview, or the first page.
    QStackedWidget *rightSide_;
    FirstPage *firstPage_ = nullptr;
    controls::TreeView *tvw = nullptr;
    controls::TextBox *txtEdit;
    controls::TextPane *textPane_;
    browser::Browser *ie;
    QLabel *sbr;
    /// What is wrong with the text in the pane, beside the word that something is.
    QLabel *syntaxLabel_;
    QPushButton *validationButton_;
    SchemaButton *schemaButton_ = nullptr;
    SchemaDialog *schemaDialog_ = nullptr;

    controls::DesktopClipboard clipboard_;
    controls::ProgressBox longWork_{*this};
    std::unique_ptr<controls::ActionMenus> menus_;
    std::unique_ptr<Editor> editor_;
    std::unique_ptr<HelpDesk> help_;
    std::unique_ptr<tools::TreePrinting> treePrinting_;
    std::unique_ptr<TreeKeys> treeKeys_;
    std::unique_ptr<Zoom> zoom_;
    std::unique_ptr<FirstScreen> firstScreen_;
    /// What was sorted by last.
    edit::SortOrder sortOrder_;
    ValidationList *validationList_ = nullptr;
    ReplaceDialog *replaceDialog_ = nullptr;
    ResultPanel *panel_ = nullptr;
    CandidatePanel *candidates_ = nullptr;
    MendMenu *mendMenu_ = nullptr;
    system::CompanionLink companion_;
};

} // namespace quillon::app
