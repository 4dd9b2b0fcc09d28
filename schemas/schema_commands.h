#pragma once

#include "platform/system/http_request.h"
#include "platform/system/shell.h"
#include "platform/ui/long_work.h"
#include "schemas/document_schemas.h"
#include "schemas/fetched_schemas.h"
#include "schemas/schema_binding.h"
#include "tree/tree_builder.h"

#include <QObject>

#include <functional>

namespace quillon::schemas {

/// What the user does about the schemas of the document.
class SchemaCommands : public QObject {
    Q_OBJECT

public:
    SchemaCommands(state::DocumentState &state, DocumentSchemas &schemas,
                   tree::TreeBuilder &builder, system::Shell &shell, ui::LongWork &longWork,
                   FetchedSchemas fetched);

    /// Has the user choose a schema for this document alone, which is remembered.
    void chooseSchema();
    void forgetChoice();

    /// Fetches what stands at one address, after a question, and keeps it. Raises with the reason
    /// when that fails, or what comes is no schema.
    void fetch(const QString &address);
    qsizetype fetchedCount() const { return fetched_.count(); }
    /// Removes all that was fetched.
    void clearFetched();

    /// Opens the file of a schema in a window of its own. Raises when that cannot be started.
    void openSchema(const QString &path) const;

    /// Has the user choose a schema that is to be named in the document; empty when not.
    QString askForSchema(const QString &title) const;
    /// What a file says of how it can be named. Raises Fail when it is no schema.
    BindableSchema examine(const QString &path) const;
    /// How the address of a schema is to be written in the document.
    QString locationOf(const QString &path) const;
    /// Names a schema in the document, which is one step. Raises Fail when the document cannot be
    /// changed so; it is then as it was.
    void bind(BindingForm form, const BindableSchema &schema);

    /// Makes a schema from the document, as a start, in a file that the user chooses: a DTD or an
    /// XML Schema, by its name. Offers to name it in the document. Raises Cancelled when it is
    /// stopped.
    void createSchema();

    /// What fetches; httpsGet() but in tests.
    std::function<system::HttpResponse(const QString &address)> get;

Q_SIGNALS:
    void statusText(const QString &text);
    void documentModified();

private:
    state::DocumentState &state_;
    DocumentSchemas &schemas_;
    tree::TreeBuilder &builder_;
    system::Shell &shell_;
    ui::LongWork &longWork_;
    FetchedSchemas fetched_;
};

} // namespace quillon::schemas
