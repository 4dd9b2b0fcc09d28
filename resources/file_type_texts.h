#pragma once

#include "resources/text.h"

#include <utility>

/// What types of files are called in the file dialogs.
namespace quillon::resources::file_type_texts {

/// Names of filters, and what is shown instead of them.
inline constexpr std::pair<QStringView, Text> Shown[] = {
    {u"XML File", u"XMLファイル"},
    {u"XSL File", u"XSLファイル"},
};

/// %1 is the size of a small file.
inline constexpr Text Bytes = u"%1 バイト";

} // namespace quillon::resources::file_type_texts
