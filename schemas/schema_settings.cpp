#include "schemas/schema_settings.h"

#include "settings/settings_table.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace quillon::schemas {

using settings::SchemaCatalogs;
using settings::SchemaChoices;
using settings::SchemaRules;

namespace {

/// Between the fields of a line: none of them can have it.
constexpr QChar Separator = u'\t';

SchemaRule ruleOf(const QString &line) {
    const QStringList fields = line.split(Separator);
    return {fields.value(0), fields.value(1), fields.value(2), fields.value(3)};
}

QString lineOf(const SchemaRule &rule) {
    QStringList fields{rule.filePattern, rule.rootName, rule.rootNamespace, rule.path};
    for (QString &field : fields)
        field = field.simplified();
    return fields.join(Separator);
}

} // namespace

bool SchemaRule::isComplete() const {
    return !path.isEmpty() &&
           !(filePattern.isEmpty() && rootName.isEmpty() && rootNamespace.isEmpty());
}

bool SchemaRule::fits(const QString &documentPath, const QString &root,
                      const QString &space) const {
    const auto agrees = [](const QString &wanted, const QString &is) {
        return wanted.isEmpty() || wanted == is;
    };
    if (!isComplete() || !agrees(rootName, root) || !agrees(rootNamespace, space))
        return false;
    if (filePattern.isEmpty())
        return true;
    const QRegularExpression pattern(QRegularExpression::wildcardToRegularExpression(filePattern),
                                     QRegularExpression::CaseInsensitiveOption |
                                         QRegularExpression::UseUnicodePropertiesOption);
    return pattern.match(documentPath.section(u'/', -1)).hasMatch();
}

std::vector<SchemaRule> SchemaSettings::rules() const {
    std::vector<SchemaRule> rules;
    for (const QString &line : SchemaRules.read(store_)) {
        if (const SchemaRule rule = ruleOf(line); rule.isComplete())
            rules.push_back(rule);
    }
    return rules;
}

void SchemaSettings::changeRules(const std::vector<SchemaRule> &before,
                                 const std::vector<SchemaRule> &after) const {
    SchemaRules.change(store_, [&](QStringList &lines) {
        QStringList now;
        for (const SchemaRule &rule : after)
            now.append(lineOf(rule));
        for (const SchemaRule &rule : before)
            lines.removeAll(lineOf(rule));
        for (const QString &line : std::as_const(now))
            lines.removeAll(line);
        lines = now + lines;
    });
}

QString SchemaSettings::choiceFor(const QString &documentPath) const {
    if (documentPath.isEmpty())
        return {};
    for (const QString &line : SchemaChoices.read(store_)) {
        if (line.section(Separator, 0, 0) == documentPath)
            return line.section(Separator, 1);
    }
    return {};
}

bool SchemaSettings::canRemember(const QString &documentPath, const QString &schemaPath) {
    const QString both = documentPath + schemaPath;
    return !documentPath.isEmpty() && !both.contains(Separator) && !both.contains(u'\n');
}

void SchemaSettings::choose(const QString &documentPath, const QString &schemaPath) const {
    SchemaChoices.change(store_, [&](QStringList &lines) {
        lines.removeIf(
            [&](const QString &line) { return line.section(Separator, 0, 0) == documentPath; });
        if (!schemaPath.isEmpty())
            lines.append(documentPath + Separator + schemaPath);
    });
}

QStringList SchemaSettings::catalogs() const {
    return SchemaCatalogs.read(store_);
}

void SchemaSettings::setCatalogs(const QStringList &files) const {
    SchemaCatalogs.change(store_, [&](QStringList &lines) { lines = files; });
}

} // namespace quillon::schemas
