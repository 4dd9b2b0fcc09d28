#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace quillon::xml {

/// An XML Schema and the namespace of the elements that it is for.
struct XsdSource {
    /// Empty for none.
    QString namespaceName;
    QString path;
};

/// A schema that has nothing but what all of these have: validators take one. They must stand in
/// folders that are read.
QByteArray combiningSchema(const std::vector<XsdSource> &schemas);

} // namespace quillon::xml
