#pragma once

#include "platform/runtime/error.h"
#include "platform/xml/engine/background_child.h"
#include "platform/xml/schema/grammar/grammar.h"
#include "schemas/schema_finder.h"
#include "state/document_state.h"

#include <QHash>
#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

namespace quillon::schemas {

/// Knows the schemas of the current document: finds what it names, in the background, when it has
/// been opened and when an edit has changed what names a schema.
class DocumentSchemas : public QObject {
    Q_OBJECT

public:
    /// `fetchedFolder`: where schemas are that have been fetched.
    DocumentSchemas(const state::DocumentState &state, const system::SettingsStore &settings,
                    QString fetchedFolder);

    /// What the document may hold; nothing when there is no schema, or none that is ready yet.
    const std::optional<grammar::Grammar> &grammar() const { return grammar_; }
    /// Everything that names a schema for the document, in the order in which it counts.
    const std::vector<SchemaLink> &links() const { return found_.links; }
    /// What the schemas in force want and what was not there, as they name it.
    const QStringList &missing() const { return found_.missing; }
    /// Gives the local copies of parts of schemas, by catalogs and what was fetched; empty for what
    /// they do not know. To be called in a child process only.
    std::function<QString(const QString &name)> localCopies() const;
    /// While it is so, what is said of schemas may change without the user's doing anything.
    bool isFinding() const { return timer_.isActive() || child_.isRunning(); }
    /// Why nothing could be found out; empty when it could.
    const QString &failure() const { return failure_; }
    /// What was seen of the document when its schemas were looked for last.
    const DocumentReferences &references() const { return references_; }
    /// What the user has said of schemas. findAgain() has it take effect.
    const SchemaSettings &settings() const { return settings_; }
    /// One line on the schema in force, or why there is none.
    QString summary() const;
    /// The same for a narrow place.
    QString shortSummary() const;

    /// Another document is the current one, or none is.
    void documentReplaced();
    /// It may have been changed, or have got another place.
    void documentChanged();
    /// The user's choice for this document, which is remembered; none when empty.
    void choose(const QString &schemaPath);
    bool hasChoice() const { return !choice().isEmpty(); }
    /// Looks anew, whatever has changed: rules, choices, or the files themselves.
    void findAgain();
    /// Looks anew if a file of the schema in force has changed.
    void checkFiles();

Q_SIGNALS:
    /// The functions above may give something else.
    void changed();

private:
    struct Known {
        grammar::Grammar grammar;
        std::vector<FileStamp> files;
        QStringList missing;
    };

    /// What is said instead while nothing is known.
    QString wordsInstead() const;
    void find();
    FinderRequest request() const;
    QString choice() const;
    void keepChoice();
    void take(const QByteArray &bytes);
    void fail(const runtime::Error &error);
    void forget();
    bool isKnown(const QString &key) const;
    /// Where the document is; empty when it is nowhere yet.
    QString documentPath() const;

    const state::DocumentState &state_;
    SchemaSettings settings_;
    QString fetchedFolder_;
    QTimer timer_;
    xml::BackgroundChild child_;
    /// For what the present findings are.
    DocumentReferences references_;
    QString path_;
    /// The choice for a document, while it cannot be remembered.
    QString unsavedChoice_;
    xml::DOMDocument40 compared_;
    /// The document names, or has named, schemas below its root element.
    bool hadDeeper_ = false;
    bool isStale_ = false;

    FoundSchemas found_;
    QString failure_;
    std::optional<grammar::Grammar> grammar_;
    QHash<QString, Known> known_;
};

} // namespace quillon::schemas
