#pragma once

#include "resources/text.h"

/// What is said ahead of sending a document.
namespace quillon::resources::send_texts {

/// %1 is the document, %2 how many bytes it has, %3 its encoding.
inline constexpr Text What = u"送信する内容: 「%1」の全体(%2 バイト、%3)。";
inline constexpr Text Where = u"送信先の http:// または https:// で始まる URL を入力してください。";
/// %1 is the server.
inline constexpr Text ToSecure = u"送信先: %1 (POST、暗号化されます)。";
inline constexpr Text ToOpen = u"送信先: %1 (POST、暗号化されません)。";

} // namespace quillon::resources::send_texts
