#include "app/main_window/window.h"

#include "platform/runtime/paths.h"

namespace quillon::app {

Window::Window(Environment environment) {
    auto *form = new frmMain(std::move(environment));
    hWnd_ = static_cast<qint32>(form->winId());
    form->ClearStatus();
    m_frmMain = form;
    connect(form, &QObject::destroyed, this, &Window::m_frmMain_Unload);
}

QVariant Window::OpenFile(const QString &path) {
    frmMain *const form = m_frmMain;
    // What is remembered must lead to the same file from any folder.
    if (form && form->editor().selection.mayLeavePane())
        form->editor().commands.openUnasked(runtime::absolutePath(path));
    return {};
}

bool Window::Visible() const {
    const frmMain *const form = m_frmMain;
    return form && form->isVisible();
}

void Window::setVisible(bool visible) {
    if (frmMain *const form = m_frmMain)
        form->setVisible(visible);
}

void Window::m_frmMain_Unload() {
    CloseWindow();
    Q_EMIT unloaded();
}

} // namespace quillon::app
