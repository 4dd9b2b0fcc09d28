#pragma once

#include "app/main_window/frm_main.h"

#include <QObject>
#include <QPointer>
#include <QVariant>

namespace quillon::app {

/// The published object for one main window. Several members do nothing: clients written for the
/// whole interface call them, and must not fail.
class Window : public QObject {
    Q_OBJECT

public:
    /// Makes the window, empty and not shown.
    explicit Window(Environment environment = Environment::ofProgram());

    /// The handle of the window, as it was when the window was made.
    qint32 hWnd() const { return hWnd_; }
    /// Opens a file and shows its path in the caption, whether or not it could be opened, unless
    /// the user goes back to text in the pane that does not parse.
    QVariant OpenFile(const QString &path);
    QVariant Save() { return {}; }
    QVariant SaveAs(const QVariant &) { return {}; }
    QVariant Quit() { return {}; }
    bool ReadOnly() const { return false; }
    bool Visible() const;
    void setVisible(bool visible);
    /// Gives up the window without closing it.
    void CloseWindow() { m_frmMain.clear(); }

    /// The window; null once it has been closed or given up.
    frmMain *form() const { return m_frmMain; }

Q_SIGNALS:
    /// The window has been closed and is gone.
    void unloaded();

private:
    void m_frmMain_Unload();

    /// The form lives until it is closed, whether or not it is still referred to from here.
    QPointer<frmMain> m_frmMain;
    qint32 hWnd_ = 0;
};

} // namespace quillon::app
