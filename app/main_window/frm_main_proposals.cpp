#include "app/main_window/frm_main.h"
#include "platform/ui/error_boundary.h"
#include "platform/xml/schema/grammar/node_lines.h"

#include <QApplication>
#include <QPointer>

namespace quillon::app {

using items::TreeItem;
using ui::guarded;

namespace {

/// So far a new window stands from the one it comes from, for both to be seen.
constexpr QPoint Step(32, 32);

/// The window that shows a file, or a new one that does.
frmMain *windowWith(const QString &path, const frmMain &from, const Environment &environment) {
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        auto *const form = qobject_cast<frmMain *>(widget);
        if (form && form->isVisible() && form->editor().state.m_Opened &&
            form->editor().state.m_FileName == path)
            return form;
    }
    auto *const form = new frmMain(environment);
    form->ClearStatus();
    form->move(from.pos() + Step);
    form->show();
    form->editor().commands.openUnasked(path);
    return form;
}

} // namespace

void frmMain::connectProposals() {
    txtEdit->setProposer(editor_->completion.paneProposer());
    txtEdit->describe = [this](QByteArrayView text, qsizetype at) {
        return editor_->completion.explanationAt(text, at);
    };
    tvw->proposerFor = [this](const TreeItem &item) {
        return editor_->completion.captionProposer(item);
    };
    tvw->describe = [this](const TreeItem &item) { return editor_->explanation.explanation(item); };
    connect(&editor_->explanation, &completion::NodeExplanation::definitionRequested, this,
            [this](const QString &path, quint32 line) {
                guarded([&] {
                    frmMain *const form = windowWith(path, *this, editor_->environment);
                    form->showLine(line);
                    form->activateWindow();
                    form->raise();
                });
            });
}

void frmMain::mnuViewPropose_Click(bool propose) {
    txtEdit->setProposesUnasked(propose);
}

void frmMain::mnuNodeChooseValue_Click() {
    txtEdit->setFocus();
    txtEdit->setSelStart(0);
    txtEdit->showProposals();
}

void frmMain::showLine(quint32 line) {
    const xml::DOMDocument40 &document = editor_->state.m_DOM;
    quint32 best = 0;
    quint32 bestLine = 0;
    const QHash<quint32, quint32> lines = grammar::linesOfElements(document);
    for (auto at = lines.begin(); at != lines.end(); ++at) {
        // Of several on a line the outermost, which was read first.
        const bool isBetter = at.value() > bestLine || (at.value() == bestLine && at.key() < best);
        if (at.value() <= line && isBetter) {
            best = at.key();
            bestLine = at.value();
        }
    }
    if (best != 0)
        editor_->selection.ShowNode(editor_->builder.itemOf(document.nodeByNumber(best)), true);
}

} // namespace quillon::app
