#include "tools/tool_commands.h"

#include "platform/runtime/error.h"
#include "platform/runtime/file_names.h"
#include "platform/runtime/paths.h"
#include "platform/system/http_request.h"
#include "platform/ui/dialogs.h"
#include "platform/ui/message_box.h"
#include "resources/messages.h"
#include "resources/send_texts.h"
#include "resources/texts.h"
#include "settings/settings_table.h"
#include "tools/value_clearing.h"

#include <QLocale>
#include <QUrl>

namespace quillon::tools {

namespace style = ui::message_style;
namespace texts = resources::texts;
namespace send_texts = resources::send_texts;

namespace {

bool mayRedirect(const QUrl &target, bool withDocument) {
    const QStringView question =
        withDocument ? texts::RedirectWithDocument : texts::RedirectWithoutDocument;
    // As it is sent: letters of other scripts that look alike are told apart.
    return ui::showMessage(question.toString().arg(QString::fromLatin1(target.toEncoded())),
                           style::YesNo + style::Question + style::DefaultButton2) ==
           ui::message_answer::Yes;
}

/// Makes an address the latest one. Whoever is to be let in by a password types that each time.
void remember(const system::SettingsStore &store, const QUrl &url) {
    const QString address = url.toString(QUrl::RemoveUserInfo | QUrl::FullyEncoded);
    settings::SentAddresses.change(store, [&](QStringList &addresses) {
        addresses.removeAll(address);
        addresses.append(address);
    });
}

} // namespace

ToolCommands::ToolCommands(const state::DocumentState &state, tree::TreeBuilder &builder,
                           const system::SettingsStore &settings, system::Shell &shell,
                           ui::LongWork &longWork)
    : state_(state), builder_(builder), settings_(settings), shell_(shell), longWork_(longWork) {}

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

QString ToolCommands::explainSending(const QString &address, qsizetype bytes) const {
    const QUrl url = system::webAddress(address);
    const QString name = state_.m_FileName.isEmpty()
                             ? texts::NewDocument.toString()
                             : runtime::shownPath(runtime::fileName(state_.m_FileName));
    const QString what = send_texts::What.toString().arg(name, QLocale().toString(qint64(bytes)),
                                                         state_.m_DOM.encoding());
    if (url.isEmpty())
        return what + u'\n' + send_texts::Where.toString();
    const bool isSecure = url.scheme() == QLatin1String("https");
    // As it is sent: letters of other scripts that look alike are told apart.
    const QString host = QString::fromLatin1(url.toEncoded(
        QUrl::RemoveUserInfo | QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment));
    return what + u'\n' +
           (isSecure ? send_texts::ToSecure : send_texts::ToOpen).toString().arg(host);
}

void ToolCommands::mnuToolSend_Click() {
    const QByteArray bytes = state_.m_DOM.serialize();
    const QStringList sent = settings::SentAddresses.read(settings_);
    const QString address = ui::dialogs().inputText(
        QStringLiteral("URL?"),
        {[&](const QString &typed) { return explainSending(typed, bytes.size()); },
         QStringList(sent.crbegin(), sent.crend())});
    if (address.isEmpty())
        return;
    if (const QUrl url = system::webAddress(address); !url.isEmpty())
        remember(settings_, url);
    system::httpPost(
        address, bytes, QStringLiteral("text/xml; charset=") + state_.m_DOM.encoding(), mayRedirect,
        [this](const std::function<void(const runtime::Progress &)> &request) {
            longWork_.run(texts::Sending.toString(), ui::LongWork::Stop::Offered, request);
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
