#include "app/main_window/first_screen.h"

#include "document/document_loader.h"
#include "resources/texts.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QWindow>

namespace quillon::app {

namespace {

/// How long a window that has only just been shown may take to be on the screen.
constexpr qint64 MostWaitingMs = 100;

void waitUntilOnScreen(const QWidget &widget) {
    const QWindow *const window = widget.window()->windowHandle();
    QElapsedTimer waiting;
    for (waiting.start(); window && !window->isExposed() && waiting.elapsed() < MostWaitingMs;)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, int(MostWaitingMs));
}

} // namespace

FirstScreen::FirstScreen(const state::ViewOptions &options, controls::TreeView &tree)
    : shownTree_(tree), builder_(state_, options, tree_), view_(tree_, &tree) {
    view_.hide();
    view_.setObjectName(QStringLiteral("firstScreen"));
    view_.setAccessibleName(resources::texts::FirstScreenName.toString());
    view_.setFocusPolicy(Qt::NoFocus);
    view_.setAttribute(Qt::WA_TransparentForMouseEvents);
    tree.installEventFilter(this);
}

void FirstScreen::show(const xml::DOMDocument40 &head) {
    if (!shownTree_.isVisible())
        return;
    state_.m_DOM = head;
    // Keys of items are for those of the document.
    builder_.BuildTree(head, true, tree::TreeBuilder::Reason::Changed);
    document::DocumentLoader::expandTopLevel(tree_);
    view_.setImageList(shownTree_.imageList());
    view_.setGeometry(shownTree_.rect());
    view_.raise();
    view_.show();
    waitUntilOnScreen(view_);
    // All of the window: it may not have been painted yet.
    view_.window()->repaint();
}

void FirstScreen::hide() {
    if (!isShown())
        return;
    view_.hide();
    tree_.nodes().Clear();
    builder_.registry().reset({});
    state_.m_DOM = {};
}

bool FirstScreen::eventFilter(QObject *watched, QEvent *event) {
    if (watched == &shownTree_ && event->type() == QEvent::Resize)
        view_.setGeometry(shownTree_.rect());
    return QObject::eventFilter(watched, event);
}

} // namespace quillon::app
