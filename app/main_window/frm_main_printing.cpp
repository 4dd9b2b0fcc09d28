#include "app/main_window/frm_main.h"
#include "platform/runtime/file_names.h"
#include "platform/runtime/paths.h"
#include "resources/print_texts.h"
#include "tools/page_settings.h"
#include "view/browser/pdf_pages.h"
#include "view/controls/print_preview.h"

namespace quillon::app {

void frmMain::connectPrinting() {
    const auto paper = [this] { return tools::paperOf(editor_->settings); };
    ie->paper = paper;
    treePrinting_->paper = paper;
    treePrinting_->keepPaper = [this](const QPageLayout &chosen) {
        tools::keepPaper(chosen, editor_->settings);
    };
}

void frmMain::mnuFilePrintPreview_Click() {
    const state::DocumentState &state = editor_->state;
    if (state.m_DOM.isNull() || !editor_->preview.ShowPreview(state.m_DOM.node()))
        return;
    browser::PdfPages pages(*ie);
    controls::PrintPreview preview(pages, tools::paperOf(editor_->settings),
                                   resources::print_texts::PagePreviewTitle.toString().arg(
                                       runtime::shownPath(runtime::fileName(state.m_FileName))),
                                   this);
    const bool isWanted = preview.exec() == QDialog::Accepted;
    tools::keepPaper(preview.paper(), editor_->settings);
    if (isWanted)
        ie->print(runtime::shownPath(runtime::fileName(state.m_FileName)));
}

} // namespace quillon::app
