#pragma once

#include "resources/text.h"

/// What is said of work in a child process that has come to no end: a transformation, a query, a
/// validation.
namespace quillon::resources::child_process_texts {

inline constexpr Text TimeLimit = u"時間がかかりすぎるため、処理を中止しました。";
inline constexpr Text MemoryLimit = u"メモリの使用量が多すぎるため、処理を中止しました。";
inline constexpr Text Died = u"処理が異常終了しました。入れ子や再帰が深すぎる可能性があります。";

} // namespace quillon::resources::child_process_texts
