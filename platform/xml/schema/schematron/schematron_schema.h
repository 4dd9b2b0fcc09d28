#pragma once

#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

/// A Schematron schema as what is left of it when all that is written only to save words has been
/// put in its place: includes, abstract patterns and rules, phases, diagnostics.
namespace quillon::schematron {

/// Where something stands.
struct Place {
    /// The path of the file.
    QString file;
    /// 1-based; 0 when unknown.
    int line = 0;
};

struct Let {
    QString name;
    /// An expression, or the text itself.
    QString value;
    bool isText = false;
    Place place;
};

/// A piece of what is said of a node.
struct MessagePart {
    /// An expression, or the text itself.
    QString value;
    bool isText = false;
    Place place;
};

/// One assertion, or one report.
struct Check {
    bool isReport = false;
    QString test;
    std::vector<MessagePart> message;
    /// Something to be told, which does not make the document wrong.
    bool isHint = false;
    Place place;
};

struct Rule {
    QString context;
    std::vector<Let> lets;
    std::vector<Check> checks;
    Place place;
};

/// Of its rules only the first that a node fits is looked at.
struct Pattern {
    std::vector<Let> lets;
    std::vector<Rule> rules;
};

struct Key {
    QString name;
    QString match;
    QString use;
    Place place;
};

struct Schema {
    /// Prefixes and what they stand for in expressions; the first of a prefix counts.
    std::vector<std::pair<QString, QString>> namespaces;
    std::vector<Let> lets;
    std::vector<Key> keys;
    std::vector<Pattern> patterns;
};

/// Reads a schema of either namespace, or what stands of one in a schema of another language. Its
/// parts are looked up in its own folder and in `folders`. Of the patterns those of a phase are
/// taken; an empty name is the phase that the schema says. Raises Fail, with file and line, for
/// what is no Schematron, has faults or is beyond all bounds.
Schema readSchematron(const QString &path, const QStringList &folders, const QString &phase = {});

} // namespace quillon::schematron
