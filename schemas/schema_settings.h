#pragma once

#include "platform/system/settings_store.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace quillon::schemas {

/// Which documents a schema is for, as the user has said. What is empty does not matter; all that
/// is not must fit.
struct SchemaRule {
    /// Of the name of the file, with * and ?; case does not matter.
    QString filePattern;
    /// The local name of the root element, and its namespace.
    QString rootName;
    QString rootNamespace;
    /// The schema.
    QString path;

    bool operator==(const SchemaRule &) const = default;

    /// Whether it says anything by which a document can be told from another.
    bool isComplete() const;
    bool fits(const QString &documentPath, const QString &root, const QString &space) const;
};

/// What the user has said of schemas, kept for all windows and all runs of the program.
class SchemaSettings {
public:
    explicit SchemaSettings(const system::SettingsStore &store) : store_(store) {}

    std::vector<SchemaRule> rules() const;
    /// Takes the rules as they have been edited. What other windows have added in the meantime
    /// stays, behind them.
    void changeRules(const std::vector<SchemaRule> &before,
                     const std::vector<SchemaRule> &after) const;

    /// The schema chosen for a document; empty for none.
    QString choiceFor(const QString &documentPath) const;
    /// Whether a choice can be kept: not for a document without a path, and not where names have
    /// characters by which the list is divided.
    static bool canRemember(const QString &documentPath, const QString &schemaPath);
    /// An empty schema takes the choice back. Those of the documents chosen for last are kept.
    void choose(const QString &documentPath, const QString &schemaPath) const;

    /// Catalogs beside those of the system.
    QStringList catalogs() const;
    void setCatalogs(const QStringList &files) const;

private:
    const system::SettingsStore &store_;
};

} // namespace quillon::schemas
