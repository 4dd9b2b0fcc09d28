#include "tools/tool_commands.h"

#include "platform/runtime/error.h"
#include "platform/runtime/paths.h"
#include "platform/system/http_request.h"
#include "platform/ui/dialogs.h"
#include "platform/ui/message_box.h"
#include "resources/messages.h"
#include "resources/texts.h"
#include "tools/value_clearing.h"

namespace quillon::tools {

namespace style = ui::message_style;
namespace texts = resources::texts;

namespace {

bool mayRedirect(const QUrl &target, bool withDocument) {
    const QStringView question =
        withDocument ? texts::RedirectWithDocument : texts::RedirectWithoutDocument;
    // As it is sent: letters of other scripts that look alike are told apart.
    return ui::showMessage(question.toString().arg(QString::fromLatin1(target.toEncoded())),
                           style::YesNo + style::Question + style::DefaultButton2) ==
           ui::message_answer::Yes;
}

} // namespace

ToolCommands::ToolCommands(const state::DocumentState &state, tree::TreeBuilder &builder,
                           system::Shell &shell, ui::LongWork &longWork)
    : state_(state), builder_(builder), shell_(shell), longWork_(longWork) {}

void ToolCommands::mnuToolRemoveText_Click() {
    if (state_.m_ReadOnly || state_.m_DOM.isNull())
        return;
    // Deleting all values asks in the same words as deleting a node.
    if (ui::showMessage(resources::messageText(resources::message::ConfirmDelete),
                        style::OkCancel + style::Question + style::DefaultButton2) !=
        ui::message_answer::Ok)
        return;
    ClearValues(state_.m_DOM);
    builder_.rebuildTree();
    Q_EMIT documentModified();
    Q_EMIT previewRequested(state_.m_DOM.node());
}

void ToolCommands::mnuToolOpen_Click(const QString &program) {
    try {
        shell_.start(program, {state_.m_FileName});
    } catch (const runtime::Error &error) {
        ui::showMessage(error.description(), style::Exclamation);
    }
}

void ToolCommands::mnuToolSend_Click() {
    const QString address = ui::dialogs().inputText(QStringLiteral("URL?"));
    if (address.isEmpty())
        return;
    system::httpPost(address, state_.m_DOM.serialize(),
                     QStringLiteral("text/xml; charset=") + state_.m_DOM.encoding(), mayRedirect,
                     [this](const std::function<void(const runtime::Progress &)> &request) {
                         longWork_.run(texts::Sending.toString(), ui::LongWork::Stop::Offered,
                                       request);
                     });
}

void ToolCommands::mnuHelpReadme_Click() {
    const QString file = runtime::programFolder() + QLatin1Char('/') + texts::ReadmeFile.toString();
    shell_.openOnDesktop(file, [file] {
        ui::showMessage(texts::NoViewer.toString().arg(file), style::Exclamation);
    });
}

void ToolCommands::mnuHelpAbout_Click() {
    ui::showMessage(texts::ApplicationTitle.toString() +
                        QStringLiteral("\tVersion " QUILLON_VERSION "\r\n") +
                        texts::LegalNotice.toString(),
                    style::Information);
}

} // namespace quillon::tools
