#pragma once

namespace quillon::xml {

/// The namespace of the functions that translated stylesheets of the old dialect call for what
/// XPath 1.0 cannot say, and the prefix they use for it.
inline constexpr char WdFunctionsNamespace[] = "urn:quillon-xml-editor:wd-xsl";
inline constexpr char WdFunctionsPrefix[] = "quillon-wd";

/// Makes the functions known to all transformations:
/// - compare(a, operator, b) and compareIgnoringCase(a, operator, b), with an operator of XPath as
/// a
///   string: whether it holds between a value of `a` and one of `b`, where the values of a node set
///   are those of its nodes. What is to be less or greater is compared as numbers where both values
///   are some; everything else by its characters.
/// - nodeType(nodes): the NodeType of the first node as a number; 0 for none.
void registerWdFunctions();

} // namespace quillon::xml
