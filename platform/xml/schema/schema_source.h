#pragma once

#include <QByteArray>
#include <QStringList>

#include <functional>
#include <vector>

namespace quillon::xml {

/// An XML Schema and the namespace of the elements that it is for.
struct XsdSource {
    /// Empty for none.
    QString namespaceName;
    QString path;
};

/// Gives the path of a local copy of what an address, a public identifier or the name of a
/// namespace stands for; empty when it knows none. It is asked for parts that are not where a
/// schema says.
using PartCatalog = std::function<QString(const QString &name)>;

/// Where the parts of schemas are looked up.
struct PartPlaces {
    QStringList folders;
    PartCatalog catalog = {};
};

/// A schema that has nothing but what all of these have: validators take one. They must stand in
/// folders that are read.
QByteArray combiningSchema(const std::vector<XsdSource> &schemas);

} // namespace quillon::xml
