#pragma once

#include "platform/xml/dom/dom.h"
#include "platform/xml/schema/grammar/schema_files.h"
#include "platform/xml/schema/schematron/schematron_schema.h"

#include <QHash>

#include <functional>
#include <map>

namespace quillon::schematron {

/// An element of the schema, and the file in which it stands.
struct Spot {
    xml::Node node;
    int file = 0;
};

/// Puts a schema together from its files.
class SchematronReader {
public:
    SchematronReader(const QString &path, const QStringList &folders)
        : files_(path, folders), path_(path) {}

    Schema read(const QString &phase);

private:
    struct File {
        QString path;
        xml::Node root;
        /// The 1-based lines of its elements, by the numbers of the nodes.
        QHash<quint32, quint32> lines;
    };
    /// What the parameters of an abstract pattern stand for.
    using Parameters = std::vector<std::pair<QString, QString>>;
    using Visit = std::function<void(const Spot &, const QString &kind)>;

    int open(const QString &path);
    /// The elements that stand in one, and what it includes where it includes it.
    void forEachPart(const Spot &parent, const Visit &visit, int depth = 0);
    /// What stands at the address of an include, or of an extension by address.
    Spot referred(const Spot &at, const QString &href);
    void forEachTopPart(const Visit &visit);
    void index();

    Pattern pattern(const Spot &spot);
    void addRules(const Spot &spot, const Parameters &parameters, Pattern &to);
    void addToRule(const Spot &spot, const Parameters &parameters, Rule &to, int depth);
    Check check(const Spot &spot, const QString &kind, const Parameters &parameters);
    void addMessage(const Spot &spot, const Parameters &parameters, std::vector<MessagePart> &to,
                    int depth);
    Let let(const Spot &spot, const Parameters &parameters);
    Key key(const Spot &spot, const Parameters &parameters, const QString &context);
    void addNamespaces(const Spot &spot);
    /// The names of the patterns of a phase; all of them when it says nothing.
    std::optional<QStringList> activePatterns(const QString &phase);

    Place placeOf(const Spot &spot) const;
    /// The value of an attribute, with parameters put in; empty when it is not there.
    QString value(const Spot &spot, const char *name, const Parameters &parameters = {});
    /// The same, which raises when it is not there.
    QString wanted(const Spot &spot, const char *name, const Parameters &parameters = {});
    QString replaced(const QString &text, const Parameters &parameters);
    [[noreturn]] void raise(const Spot &spot, const QString &reason) const;

    grammar::SchemaFiles files_;
    QString path_;
    std::vector<File> opened_;
    Schema schema_;
    std::vector<Spot> patterns_;
    std::map<QString, Spot> abstractPatterns_;
    std::map<QString, Spot> rules_;
    std::map<QString, Spot> diagnostics_;
    std::map<QString, Spot> phases_;
    QString defaultPhase_;
    int includes_ = 0;
    qsizetype size_ = 0;
};

} // namespace quillon::schematron
