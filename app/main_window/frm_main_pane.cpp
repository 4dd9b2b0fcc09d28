#include "app/main_window/frm_main.h"
#include "resources/pane_texts.h"

#include <QAction>
#include <QStyle>

namespace quillon::app {

void frmMain::connectPane() {
    txtEdit->setStructure(editor_->paneSource.structure());
    connect(&editor_->fileLines, &source::FileLines::firstLineChanged, txtEdit,
            &controls::TextBox::setFirstLineNumber);
    zoom_ =
        std::make_unique<Zoom>(editor_->settings.zoom, std::vector<QWidget *>{tvw, txtEdit, ie});
    connect(zoom_.get(), &Zoom::changed, this, [this](int percent) {
        takeFont(editor_->settings.fontName, editor_->settings.fontSize);
        showStatus(resources::pane_texts::ZoomIs.toString().arg(percent));
    });
}

void frmMain::takePaneSettings() {
    const settings::Settings &settings = editor_->settings;
    txtEdit->setWrapped(settings.wrapsPane);
    txtEdit->setBlanksShown(settings.showsBlanks);
    txtEdit->setClosesElements(settings.closesElements);
    editor_->fileLines.setOn(settings.showsFileLines);
    actions_.action(u"mnuPaneWrap")->setChecked(settings.wrapsPane);
    actions_.action(u"mnuPaneBlanks")->setChecked(settings.showsBlanks);
    actions_.action(u"mnuPaneClose")->setChecked(settings.closesElements);
    actions_.action(u"mnuPaneFileLines")->setChecked(settings.showsFileLines);
}

void frmMain::mnuPaneWrap_Click(bool on) {
    editor_->settings.wrapsPane = on;
    txtEdit->setWrapped(on);
}

void frmMain::mnuPaneBlanks_Click(bool on) {
    editor_->settings.showsBlanks = on;
    txtEdit->setBlanksShown(on);
}

void frmMain::mnuPaneFileLines_Click(bool on) {
    editor_->settings.showsFileLines = on;
    editor_->fileLines.setOn(on);
}

void frmMain::mnuPaneClose_Click(bool on) {
    editor_->settings.closesElements = on;
    txtEdit->setClosesElements(on);
}

void frmMain::mnuPaneJump_Click() {
    if (txtEdit->hasFocus()) {
        if (editor_->paneSource.goToItem())
            tvw->setFocus();
    } else if (editor_->paneSource.goToPlace()) {
        txtEdit->setFocus();
    }
}

void frmMain::showZoomed(const QString &fontName, qint16 fontSize) {
    const double factor = zoom_->percent() / 100.0;
    const double size = fontSize * factor;
    QFont font(fontName);
    font.setPointSizeF(size);
    txtEdit->setTextFont(fontName, size);
    tvw->setFont(font);
    panel_->setTextFont(font);
    candidates_->setTextFont(font);
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, tvw);
    tvw->setIconSize(QSize(icon, icon) * factor);
    tvw->resetIndentation();
    tvw->setIndentation(int(tvw->indentation() * factor));
    ie->setZoom(factor);
}

} // namespace quillon::app
