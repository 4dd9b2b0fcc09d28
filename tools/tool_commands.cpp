#include "tools/tool_commands.h"

#include "platform/runtime/error.h"
#include "platform/runtime/paths.h"
#include "platform/system/http_post.h"
#include "resources/messages.h"
#include "resources/texts.h"
#include "tools/value_clearing.h"
#include "view/controls/dialogs.h"
#include "view/controls/message_box.h"

namespace quillon::tools {

namespace style = controls::message_style;
namespace texts = resources::texts;

namespace {

bool mayRedirect(const QUrl &target, bool withDocument) {
    const QStringView question =
        withDocument ? texts::RedirectWithDocument : texts::RedirectWithoutDocument;
    // As it is sent: letters of other scripts that look alike are told apart.
    return controls::showMessage(question.toString().arg(QString::fromLatin1(target.toEncoded())),
                                 style::YesNo + style::Question + style::DefaultButton2) ==
           controls::message_answer::Yes;
}

} // namespace

ToolCommands::ToolCommands(const state::DocumentState &state, tree::TreeBuilder &builder,
                           system::Shell &shell, controls::LongWork &longWork)
    : state_(state), builder_(builder), shell_(shell), longWork_(longWork) {}

void ToolCommands::mnuToolRemoveText_Click() {
    if (state_.m_ReadOnly || state_.m_DOM.isNull())
        return;
    // Deleting all values asks in the same words as deleting a node.
    if (controls::showMessage(resources::messageText(resources::message::ConfirmDelete),
                              style::OkCancel + style::Question + style::DefaultButton2) !=
        controls::message_answer::Ok)
        return;
    ClearValues(state_.m_DOM);
    builder_.RebuildTree();
    Q_EMIT documentModified();
    Q_EMIT previewRequested(state_.m_DOM.node());
}

void ToolCommands::mnuToolOpen_Click(const QString &program) {
    try {
        shell_.start(program, {state_.m_FileName});
    } catch (const runtime::Error &error) {
        controls::showMessage(error.description(), style::Exclamation);
    }
}

void ToolCommands::mnuToolSend_Click() {
    const QString address = controls::dialogs().inputText(QStringLiteral("URL?"));
    if (address.isEmpty())
        return;
    system::httpPost(address, state_.m_DOM.serialize(),
                     QStringLiteral("text/xml; charset=") + state_.m_DOM.encoding(), mayRedirect,
                     [this](const std::function<void(const runtime::Progress &)> &request) {
                         longWork_.run(texts::Sending.toString(), controls::LongWork::Stop::Offered,
                                       request);
                     });
}

void ToolCommands::mnuHelpReadme_Click() {
    const QString file = runtime::programFolder() + QStringLiteral("/readme.txt");
    shell_.openOnDesktop(file, [file] {
        controls::showMessage(texts::NoViewer.toString().arg(file), style::Exclamation);
    });
}

void ToolCommands::mnuHelpAbout_Click() {
    controls::showMessage(texts::ApplicationTitle.toString() +
                              QStringLiteral("\tVersion " QUILLON_VERSION "\r\n") +
                              texts::LegalNotice.toString(),
                          style::Information);
}

} // namespace quillon::tools
