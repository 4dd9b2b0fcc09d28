#include "schemas/schema_commands.h"

#include "platform/runtime/error.h"
#include "platform/ui/dialogs.h"
#include "platform/ui/message_box.h"
#include "platform/xml/engine/child_process.h"
#include "platform/xml/io/atomic_file.h"
#include "resources/schema_link_texts.h"
#include "schemas/schema_inference.h"
#include "schemas/schema_language.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDir>
#include <QFileInfo>
#include <QIODevice>
#include <QUrl>

namespace quillon::schemas {

namespace style = ui::message_style;
namespace texts = resources::schema_link_texts;

namespace {

bool isYes(const QString &question, int icon) {
    return ui::showMessage(question, style::YesNo + icon) == ui::message_answer::Yes;
}

/// As it is sent: letters of other scripts that look alike are told apart.
QString shownAddress(const QUrl &address) {
    return QString::fromLatin1(address.toEncoded());
}

[[noreturn]] void fail(const QString &reason) {
    throw runtime::Error(runtime::error_number::Fail, reason);
}

} // namespace

SchemaCommands::SchemaCommands(state::DocumentState &state, DocumentSchemas &schemas,
                               tree::TreeBuilder &builder, system::Shell &shell,
                               ui::LongWork &longWork, FetchedSchemas fetched)
    : state_(state), schemas_(schemas), builder_(builder), shell_(shell), longWork_(longWork),
      fetched_(std::move(fetched)) {
    get = [this](const QString &address) {
        return system::httpsGet(
            address,
            [](const QUrl &target, bool) {
                return isYes(texts::AskRedirect.toString().arg(shownAddress(target)),
                             style::Question + style::DefaultButton2);
            },
            [this](const std::function<void(const runtime::Progress &)> &request) {
                longWork_.run(texts::Fetching.toString(), ui::LongWork::Stop::Offered, request);
            });
    };
}

QString SchemaCommands::askForSchema(const QString &title) const {
    namespace flag = ui::file_dialog_flag;
    return ui::dialogs()
        .showOpen({.title = title,
                   .filter = texts::DialogFilter.toString(),
                   .flags = flag::FileMustExist | flag::PathMustExist | flag::HideReadOnly,
                   .path = {},
                   .folder = state_.folder()})
        .path;
}

void SchemaCommands::chooseSchema() {
    const QString path = askForSchema(texts::ChooseTitle.toString());
    if (!path.isEmpty())
        schemas_.choose(path);
}

void SchemaCommands::forgetChoice() {
    schemas_.choose({});
}

void SchemaCommands::fetch(const QString &address) {
    const QString secure = FetchedSchemas::fetchable(address);
    if (secure.isEmpty())
        fail(texts::NotFetchable.toString().arg(address));
    if (!isYes(texts::AskFetch.toString().arg(shownAddress(QUrl(secure))), style::Question))
        return;
    const system::HttpResponse response = get(secure);
    constexpr int Ok = 200;
    if (response.status != Ok)
        fail(texts::BadStatus.toString().arg(secure).arg(response.status));
    if (response.body.size() >= system::LongestAnswer)
        fail(texts::TooLarge.toString().arg(secure));
    if (!isSchema(response.body, secure))
        fail(texts::NoSchemaThere.toString().arg(secure));
    fetched_.keep(secure, response.body);
    schemas_.findAgain();
    Q_EMIT statusText(texts::FetchDone.toString().arg(secure));
}

void SchemaCommands::clearFetched() {
    const qsizetype count = fetched_.count();
    if (count > 0 && isYes(texts::AskClearFetched.toString().arg(count), style::Question)) {
        fetched_.clear();
        schemas_.findAgain();
    }
}

void SchemaCommands::openSchema(const QString &path) const {
    shell_.start(QCoreApplication::applicationFilePath(), {path});
}

BindableSchema SchemaCommands::examine(const QString &path) const {
    // It may be a stranger's.
    const QByteArray bytes = xml::runInChild([&] {
        QByteArray answer;
        QDataStream stream(&answer, QIODevice::WriteOnly);
        stream << languageOf(path) << targetNamespaceOf(path);
        return answer;
    });
    BindableSchema schema{.path = path, .location = locationOf(path)};
    QDataStream stream(bytes);
    stream >> schema.kind >> schema.targetNamespace;
    if (formsFor(schema).empty())
        fail(texts::NotASchema.toString().arg(QFileInfo(path).fileName()));
    return schema;
}

QString SchemaCommands::locationOf(const QString &path) const {
    const QString folder = state_.folder();
    if (folder.isEmpty())
        return QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
    QString location = QDir(folder).relativeFilePath(path);
    // Blanks would divide a list of addresses, and these mean something in one.
    for (const char16_t character : u"% #?\"'<>&")
        if (character != 0)
            location.replace(QChar(character), QString::fromLatin1(QUrl::toPercentEncoding(
                                                   QString(QChar(character)))));
    return location;
}

void SchemaCommands::bind(BindingForm form, const BindableSchema &schema) {
    if (state_.m_ReadOnly)
        fail(texts::DocumentIsReadOnly.toString());
    bindSchema(state_.m_DOM, form, schema);
    builder_.rebuildTree();
    Q_EMIT documentModified();
}

void SchemaCommands::createSchema() {
    namespace flag = ui::file_dialog_flag;
    const QString folder = state_.folder();
    const QString name = QFileInfo(state_.m_FileName).completeBaseName() + QStringLiteral(".xsd");
    const QString path =
        ui::dialogs()
            .showSave({.title = texts::SaveTitle.toString(),
                       .filter = texts::SaveFilter.toString(),
                       .flags = flag::OverwritePrompt | flag::PathMustExist | flag::HideReadOnly,
                       .path = folder.isEmpty() ? QString() : folder + u'/' + name,
                       .folder = folder})
            .path;
    if (path.isEmpty())
        return;
    const bool isDtd = path.endsWith(QLatin1String(".dtd"), Qt::CaseInsensitive);
    const SchemaKind kind = isDtd ? SchemaKind::Dtd : SchemaKind::Xsd;
    QByteArray made;
    longWork_.run(texts::Creating.toString(), ui::LongWork::Stop::Offered,
                  [&](const runtime::Progress &progress) {
                      made = xml::runInChild([&] { return inferredSchema(state_.m_DOM, kind); }, {},
                                             progress);
                  });
    xml::writeFileAtomically(path, {made.constData(), std::size_t(made.size())});
    Q_EMIT statusText(texts::Created.toString().arg(path));
    if (state_.m_ReadOnly ||
        !isYes(texts::AskBindCreated.toString().arg(QFileInfo(path).fileName()), style::Question)) {
        schemas_.findAgain();
        return;
    }
    const BindableSchema schema = examine(path);
    bind(formsFor(schema).front(), schema);
}

} // namespace quillon::schemas
