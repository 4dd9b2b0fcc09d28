#pragma once

#include <QString>

#include <libxml/xmlerror.h>

namespace quillon::xml {

/// What a report of libxml2 says is wrong with an XML Schema or a DTD, or with the syntax of a file
/// read for validation: a whole Japanese sentence.
QString schemaFault(const xmlError &error);
/// The same of a declaration in a DTD that breaks a rule of XML but can be validated by.
QString dtdDeclarationFault(const xmlError &error);

} // namespace quillon::xml
