#pragma once

#include "platform/xml/dom/dom.h"

#include <QStringList>

#include <vector>

namespace quillon::xml {

/// Numbers of the errors that validation reports.
namespace schema_error {
constexpr qint32 UndefinedEntity = static_cast<qint32>(0xC00CE002);
constexpr qint32 UndeclaredElement = static_cast<qint32>(0xC00CE00D);
constexpr qint32 UndefinedId = static_cast<qint32>(0xC00CE00E);
constexpr qint32 EmptyElement = static_cast<qint32>(0xC00CE011);
constexpr qint32 IncompleteContent = static_cast<qint32>(0xC00CE012);
constexpr qint32 WrongRoot = static_cast<qint32>(0xC00CE013);
constexpr qint32 InvalidContent = static_cast<qint32>(0xC00CE014);
constexpr qint32 UndefinedAttribute = static_cast<qint32>(0xC00CE015);
constexpr qint32 FixedAttribute = static_cast<qint32>(0xC00CE016);
constexpr qint32 InvalidAttribute = static_cast<qint32>(0xC00CE017);
constexpr qint32 TextNotAllowed = static_cast<qint32>(0xC00CE018);
constexpr qint32 MissingAttribute = static_cast<qint32>(0xC00CE020);
constexpr qint32 InvalidDatatype = static_cast<qint32>(0xC00CE201);
constexpr qint32 MissingImport = static_cast<qint32>(0xC00CE203);
constexpr qint32 NoSchemaFound = static_cast<qint32>(0xC00CE224);
/// A schema has faults, or cannot be read.
constexpr qint32 UnusableSchema = static_cast<qint32>(0xC00CE225);
/// What the author of a schema has put in words.
constexpr qint32 RuleViolation = static_cast<qint32>(0xC00CE226);
} // namespace schema_error

/// One way in which a document does not keep to its schema.
struct SchemaError {
    /// One of schema_error.
    qint32 errorCode = 0;
    /// A Japanese sentence that names the element or attribute; what was expected instead stands
    /// on a second line.
    QString reason;
    /// The element concerned.
    Node node;
    /// 1-based line of the element in the text that the document was read from; 0 when unknown.
    int line = 0;
    /// Not against the schema: something that the schema wanted was not there, or what its author
    /// wants to be told and no more.
    bool isWarning = false;
    /// The qualified name of the attribute of the element that is wrong; empty when it is none.
    QString attribute = {};
    /// 1-based column of the element in its line, in characters; 0 when unknown.
    int column = 0;
};

/// No more errors than these are kept. Validators return one more where there are more.
inline constexpr std::size_t MaxSchemaErrors = 1000;

/// Sets the lines and columns of errors whose nodes belong to one document. Cheapest when they
/// stand in document order.
void setLines(std::vector<SchemaError> &errors);
/// The 1-based line that a node which was read starts on; 0 for any other node.
int lineOf(const Node &node);

/// The elements of a document at 0-based positions in document order, which ascend; the empty
/// handle for a position that is negative or beyond the last element.
std::vector<Node> elementsAt(const DOMDocument40 &document, const std::vector<qint64> &positions);
/// The reverse: the positions of elements given in any order; -1 for what is no element there.
std::vector<qint64> positionsOf(const DOMDocument40 &document, const std::vector<Node> &elements);

/// Puts errors into the order of their elements in the document; those of one element keep theirs,
/// and those of none come last.
void putInDocumentOrder(std::vector<SchemaError> &errors, const DOMDocument40 &document);

/// A sentence with a second line, which says that one of those names would have to come; the
/// sentence alone when there are none.
QString withExpected(const QString &reason, const QStringList &names);

/// Raises an Error that a schema cannot be used. `line` 0 when unknown.
[[noreturn]] void raiseSchemaError(const QString &schemaName, int line, const QString &reason);

} // namespace quillon::xml
