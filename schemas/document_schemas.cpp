#include "schemas/document_schemas.h"

#include "platform/ui/error_boundary.h"
#include "platform/xml/schema/grammar/grammar_bytes.h"
#include "resources/schema_link_texts.h"
#include "schemas/schema_locator.h"
#include "schemas/schema_words.h"

#include <QFileInfo>

#include <algorithm>
#include <memory>

namespace quillon::schemas {

namespace {

/// Edits that follow each other more quickly are looked at once.
constexpr std::chrono::milliseconds Pause(150);
constexpr std::chrono::seconds MostTime(10);
/// Grammars that are kept for documents that are opened again.
constexpr qsizetype MostKnown = 8;

} // namespace

DocumentSchemas::DocumentSchemas(const state::DocumentState &state,
                                 const system::SettingsStore &settings, QString fetchedFolder)
    : state_(state), settings_(settings), fetchedFolder_(std::move(fetchedFolder)) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, [this] { ui::guarded([this] { find(); }); });
    connect(&child_, &xml::BackgroundChild::finished, this,
            [this](const QByteArray &bytes) { ui::guarded([&] { take(bytes); }); });
    connect(&child_, &xml::BackgroundChild::failed, this,
            [this](const runtime::Error &error) { ui::guarded([&] { fail(error); }); });
}

QString DocumentSchemas::documentPath() const {
    return QFileInfo(state_.m_FileName).isAbsolute() || state_.m_FileName.contains(u':')
               ? state_.m_FileName
               : QString();
}

void DocumentSchemas::documentReplaced() {
    child_.giveUp();
    forget();
    hadDeeper_ = false;
    compared_ = {};
    unsavedChoice_.clear();
    path_.clear();
    isStale_ = true;
    timer_.start(0);
    Q_EMIT changed();
}

void DocumentSchemas::documentChanged() {
    if (!timer_.isActive() || timer_.interval() > 0)
        timer_.start(Pause);
}

void DocumentSchemas::findAgain() {
    isStale_ = true;
    timer_.start(0);
}

void DocumentSchemas::choose(const QString &schemaPath) {
    unsavedChoice_ = schemaPath;
    keepChoice();
    findAgain();
}

QString DocumentSchemas::choice() const {
    return unsavedChoice_.isEmpty() ? settings_.choiceFor(documentPath()) : unsavedChoice_;
}

void DocumentSchemas::checkFiles() {
    const auto known = known_.constFind(found_.key);
    if (known != known_.constEnd() && !isKnown(found_.key))
        findAgain();
}

void DocumentSchemas::keepChoice() {
    if (SchemaSettings::canRemember(documentPath(), unsavedChoice_))
        settings_.choose(documentPath(), std::exchange(unsavedChoice_, QString()));
}

FinderRequest DocumentSchemas::request() const {
    FinderRequest request{.document = compared_, .references = references_, .documentPath = path_};
    request.choice = choice();
    request.rules = settings_.rules();
    request.catalogs = settings_.catalogs();
    request.fetchedFolder = fetchedFolder_;
    return request;
}

void DocumentSchemas::find() {
    if (!state_.showsDocument()) {
        child_.giveUp();
        forget();
        Q_EMIT changed();
        return;
    }
    DocumentReferences references = referencesOf(state_.m_DOM);
    const QString path = documentPath();
    const bool isElsewhere = path != path_ || references != references_;
    if (!isStale_ && !isElsewhere &&
        !mayDifferInDeeperLocations(compared_, state_.m_DOM, hadDeeper_)) {
        compared_ = state_.m_DOM.clone();
        return;
    }
    isStale_ = false;
    references_ = std::move(references);
    const bool isRenamed = path != path_ && !path.isEmpty() && !path_.isEmpty();
    const QString choiceBefore = isRenamed ? settings_.choiceFor(path_) : QString();
    path_ = path;
    if (!unsavedChoice_.isEmpty())
        keepChoice();
    else if (isRenamed && settings_.choiceFor(path).isEmpty())
        settings_.choose(path, choiceBefore);
    compared_ = state_.m_DOM.clone();
    child_.start(
        [this, request = request()] {
            return packed(
                findSchemas(request, [this](const QString &key) { return isKnown(key); }));
        },
        {MostTime});
    Q_EMIT changed();
}

void DocumentSchemas::take(const QByteArray &bytes) {
    FoundSchemas found = unpacked(bytes);
    failure_.clear();
    grammar_.reset();
    const auto known = known_.constFind(found.key);
    if (!found.grammar.isEmpty()) {
        if (std::optional<grammar::Data> data = grammar::fromBytes(found.grammar)) {
            grammar_.emplace(std::move(*data));
            if (known_.size() >= MostKnown)
                known_.clear();
            known_.insert(found.key, {*grammar_, found.files, found.missing});
        }
    } else if (known != known_.constEnd()) {
        grammar_ = known->grammar;
        found.missing = known->missing;
    }
    found.grammar.clear();
    hadDeeper_ = hadDeeper_ || found.hasDeeper;
    found_ = std::move(found);
    Q_EMIT changed();
}

void DocumentSchemas::fail(const runtime::Error &error) {
    forget();
    failure_ = error.description();
    Q_EMIT changed();
}

void DocumentSchemas::forget() {
    found_ = {};
    failure_.clear();
    grammar_.reset();
}

bool DocumentSchemas::isKnown(const QString &key) const {
    const auto known = known_.constFind(key);
    // What was missing may be there by now.
    return known != known_.constEnd() && known->missing.isEmpty() &&
           std::ranges::all_of(known->files,
                               [](const FileStamp &file) { return stampOf(file.path) == file; });
}

std::function<QString(const QString &)> DocumentSchemas::localCopies() const {
    struct Sources {
        FetchedSchemas fetched;
        Catalogs catalogs;
        SchemaLocator locator{{}, fetched, catalogs};
    };
    const auto sources =
        std::make_shared<Sources>(FetchedSchemas(fetchedFolder_), Catalogs(settings_.catalogs()));
    return [sources](const QString &name) { return sources->locator.copyOf(name); };
}

QString DocumentSchemas::wordsInstead() const {
    return isFinding() && found_.links.empty() ? resources::schema_link_texts::Finding.toString()
                                               : failure_;
}

QString DocumentSchemas::summary() const {
    const QString instead = wordsInstead();
    return instead.isEmpty() ? schemas::summary(found_.links) : instead;
}

QString DocumentSchemas::shortSummary() const {
    const QString instead = wordsInstead();
    return instead.isEmpty() ? schemas::shortSummary(found_.links) : instead;
}

} // namespace quillon::schemas
