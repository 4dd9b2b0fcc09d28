#include "app/main_window/frm_main.h"

#include "app/main_window/command_table.h"
#include "platform/ui/error_boundary.h"
#include "resources/texts.h"
#include "view/controls/screen_fit.h"
#include "view/controls/themed_icon.h"

#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QOpenGLContext>
#include <QOpenGLWidget>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

namespace quillon::app {

using ui::guarded;
using ui::ignoringErrors;
namespace texts = resources::texts;

namespace {

constexpr QSize DesignSize(1000, 680);
/// The path box stands this far below the top of its place on the toolbar.
constexpr int PathTopTwips = 30;

/// The pictures of the nodes, by the numbers that the captions give.
QList<QIcon> treeImages(controls::IconColours colours) {
    QList<QIcon> images;
    for (const QString &key : tree::imageKeys())
        images.append(controls::themedIcon(QStringLiteral("tree/") + key, colours));
    return images;
}

} // namespace

frmMain::frmMain(Environment environment)
    : actions_(menuEntries()), tbr(new QToolBar(this)), tbrMove(new QToolBar(tbr)),
      picPath(new QWidget(tbr)), cboPath(new controls::PathBox(picPath)),
      vsp(new QSplitter(Qt::Horizontal, this)), hsp(new QSplitter(Qt::Vertical)),
      rightSide_(new QStackedWidget), txtEdit(new controls::TextBox),
      textPane_(new controls::TextPane(*txtEdit)), ie(new browser::Browser), sbr(new QLabel),
      syntaxLabel_(new QLabel), validationButton_(new QPushButton) {
    setAttribute(Qt::WA_DeleteOnClose);
    menus_ = std::make_unique<controls::ActionMenus>(actions_, *menuBar());
    editor_ = std::make_unique<Editor>(std::move(environment), *txtEdit, *cboPath, *ie, longWork_,
                                       clipboard_);
    tvw = new controls::TreeView(editor_->tree);
    tvw->setImageList(treeImages(controls::IconColours::OfTheme));
    panel_ = new ResultPanel(*editor_, tvw->imageList(), longWork_, this);
    candidates_ = new CandidatePanel(*editor_, tvw->imageList(), this);
    help_ = std::make_unique<HelpDesk>(*editor_, actions_, *this);
    mendMenu_ = new MendMenu(*editor_, *tvw, *txtEdit, *panel_, this);
    treePrinting_ = std::make_unique<tools::TreePrinting>(editor_->state, editor_->tree, longWork_);
    treePrinting_->look = [this] {
        return tools::PrintLook{tvw->font(), treeImages(controls::IconColours::OnPaper), {}, {}};
    };
    connectPrinting();
    // Nodes are moved within the tree; in the pane they would be typing.
    txtEdit->refuseDropsOf({tree::NodeFormat, tree::NodesFormat});
    connectCommands();
    treeKeys_ = std::make_unique<TreeKeys>(*tvw, *editor_, actions_);
    keepHandle();
    layOut();
    nameForAccessibility();
    connectButtons();
    connectWindow();
    connectFirstPage();
    connectFirstScreen();
    Form_Initialize();
    Form_Load();
    showFirstPageIfEmpty();
}

frmMain::~frmMain() {
    // Ahead of what they show.
    firstScreen_.reset();
    delete candidates_;
    delete panel_;
    delete tvw;
}

void frmMain::layOut() {
    fillToolBar();
    hsp->addWidget(textPane_);
    hsp->addWidget(ie);
    vsp->addWidget(tvw);
    rightSide_->addWidget(hsp);
    vsp->addWidget(rightSide_);
    // The splitters keep their places whatever becomes of the room behind them. The status bar, for
    // one, gets taller after the window is shown.
    for (QSplitter *splitter : {vsp, hsp}) {
        splitter->setStretchFactor(0, 0);
        splitter->setStretchFactor(1, 1);
    }
    vsp->setChildrenCollapsible(false);
    setCentralWidget(vsp);
    addDockWidget(Qt::BottomDockWidgetArea, panel_);
    panel_->hide();
    addDockWidget(Qt::RightDockWidgetArea, candidates_);
    candidates_->hide();

    statusBar()->addWidget(sbr, 1);
    statusBar()->addWidget(syntaxLabel_, 4);
    syntaxLabel_->hide();
    statusBar()->addPermanentWidget(&panel_->button());
    statusBar()->addPermanentWidget(&panel_->faultsButton());
    statusBar()->addPermanentWidget(validationButton_);
    schemaButton_ = new SchemaButton(editor_->schemas, editor_->state);
    statusBar()->addPermanentWidget(schemaButton_);
    validationButton_->hide();
    for (QLabel *label : {sbr, syntaxLabel_}) {
        // A long text must not widen the window.
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        label->setTextFormat(Qt::PlainText);
    }
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    resize(DesignSize.boundedTo(available.size() - controls::FrameSize));
    move(available.topLeft() +
         QPoint(available.width() - width(), available.height() - height()) / 2);
    firstSplitLeft_ = DesignSize.width() * 2 / 5;
    firstSplitTop_ = DesignSize.height() / 2;
}

void frmMain::keepHandle() {
    // The browser draws through OpenGL, and a window that takes such a child in gets another
    // handle unless it has had one from the start. Without OpenGL the browser does without, too.
    // So it does on platforms that show nothing; they may offer OpenGL all the same, as offscreen
    // does beside an X display, and then crash when they draw such a window.
    const QString platform = QGuiApplication::platformName();
    const bool isDesktop = platform == u"xcb" || platform.startsWith(u"wayland");
    QOpenGLContext context;
    if (!isDesktop || !context.create())
        return;
    auto *openGl = new QOpenGLWidget(this);
    openGl->hide();
}

void frmMain::fillToolBar() {
    tbr->setMovable(false);
    tbr->setContextMenuPolicy(Qt::PreventContextMenu);
    tbr->setIconSize(QSize(20, 20));
    actions_.fillToolBar(*tbr, 0, LastMainGroup);
    tbr->addSeparator();
    tbrMove->setIconSize(tbr->iconSize());
    actions_.fillToolBar(*tbrMove, LastMainGroup + 1, LastMainGroup + 1);
    tbr->addWidget(tbrMove);

    auto *column = new QVBoxLayout(picPath);
    column->setContentsMargins(0, PathTopTwips / TwipsPerPixel, 0, 0);
    column->addWidget(cboPath);
    cboPath->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    picPath->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    tbr->addWidget(picPath);
    addToolBar(tbr);
    // The path box reaches the right edge of the window.
    QMargins margins = tbr->layout()->contentsMargins();
    margins.setRight(0);
    tbr->layout()->setContentsMargins(margins);
}

void frmMain::nameForAccessibility() {
    const auto name = [](QWidget *widget, const char *objectName, QStringView accessibleName) {
        widget->setObjectName(QLatin1String(objectName));
        widget->setAccessibleName(accessibleName.toString());
    };
    name(tbr, "tbr", texts::ToolBarName);
    name(tbrMove, "tbrMove", texts::MoveToolBarName);
    name(picPath, "picPath", texts::PathName);
    name(cboPath, "cboPath", texts::PathName);
    // Assistive technology reads the text of a box that can be edited in place of its name.
    cboPath->setAccessibleDescription(texts::PathName.toString());
    cboPath->lineEdit()->setAccessibleName(texts::PathName.toString());
    name(vsp, "vsp", texts::ColumnsName);
    name(hsp, "hsp", texts::RowsName);
    name(tvw, "tvw", texts::TreeName);
    name(txtEdit, "txtEdit", texts::PaneName);
    name(ie, "ie", texts::PreviewName);
    sbr->setObjectName(QStringLiteral("sbr"));
    syntaxLabel_->setObjectName(QStringLiteral("syntaxLabel"));
    validationButton_->setObjectName(QStringLiteral("validationButton"));
    tbr->setWindowTitle(texts::ToolBarName.toString());
}

void frmMain::Form_Load() {
    ignoringErrors([this] {
        if (companion_.open())
            companion_.execute(QStringLiteral("ADD ") + handle());
    });
}

QString frmMain::handle() const {
    return QString::number(static_cast<qint32>(winId()));
}

void frmMain::closeEvent(QCloseEvent *event) {
    bool unload = false;
    guarded([this] { editor_->tree.endLabelEdit(); });
    guarded([&] { unload = editor_->commands.confirmLeaving(); });
    event->setAccepted(unload);
    if (unload)
        guarded([this] { Form_Unload(); });
}

void frmMain::changeEvent(QEvent *event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && editor_)
        guarded([this] {
            editor_->schemas.checkFiles();
            editor_->commands.checkFileOnDisk();
        });
}

void frmMain::showStatus(const QString &text) {
    sbr->setText(text);
    sbr->setToolTip(text);
    sbr->setAccessibleName(text);
    // What follows a text that something takes its time may keep the event loop waiting.
    if (!text.isEmpty())
        sbr->repaint();
}

void frmMain::showSyntaxFault() {
    const QString told = editor_->paneSyntax.told();
    syntaxLabel_->setText(told);
    syntaxLabel_->setToolTip(told);
    syntaxLabel_->setAccessibleName(told);
    syntaxLabel_->setVisible(!told.isEmpty());
    // Where it is told to those who listen.
    txtEdit->setAccessibleDescription(told);
}

} // namespace quillon::app
