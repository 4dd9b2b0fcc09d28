#pragma once

#include "platform/runtime/error.h"
#include "platform/xml/transform/xslt.h"
#include "tests/platform/xml/xml_test_support.h"

namespace quillon::xml::test {

/// A stylesheet with the prefixes that the tests use.
inline std::string stylesheet(const std::string &content) {
    return "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform' "
           "xmlns:msxsl='urn:schemas-microsoft-com:xslt' xmlns:str='http://exslt.org/strings' "
           "xmlns:set='http://exslt.org/sets' xmlns:math='http://exslt.org/math' "
           "xmlns:exsl='http://exslt.org/common' extension-element-prefixes='exsl' "
           "exclude-result-prefixes='msxsl str set math'>" +
           content + "</xsl:stylesheet>";
}

/// A stylesheet that outputs as text what an expression gives for the document.
inline std::string textOf(const std::string &expression) {
    return stylesheet("<xsl:output method='text'/><xsl:template match='/'><xsl:value-of select=\"" +
                      expression + "\"/></xsl:template>");
}

inline std::string transformed(const std::string &source, const std::string &sheet,
                               const TransformOptions &options = {}) {
    return transformNode(parsed(source).node(), parsed(sheet), options).toStdString();
}

/// The description of the error that the transformation raises; empty when it raises none.
inline std::string failure(const std::string &source, const std::string &sheet,
                           const TransformOptions &options = {}) {
    try {
        transformed(source, sheet, options);
    } catch (const runtime::Error &error) {
        EXPECT_EQ(error.number(), runtime::error_number::Fail);
        return error.what();
    }
    return {};
}

} // namespace quillon::xml::test
