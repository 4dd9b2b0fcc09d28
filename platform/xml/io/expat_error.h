#pragma once

#include "platform/xml/storage/parse_error.h"

#include <expat.h>
#include <string>

namespace quillon::xml {

/// What has stopped a parser within a text, in Japanese. `inElement`: an element was open.
ParseError errorOf(XML_Parser parser, const std::string &text, bool inElement);

} // namespace quillon::xml
