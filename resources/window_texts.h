#pragma once

#include "resources/text.h"

/// What is said about the windows that are open.
namespace quillon::resources::window_texts {

/// %1 is the name of the document, as the title shows it; %2 its folder, where there is another of
/// that name.
inline constexpr Text InFolder = u"%1 (%2)";
inline constexpr Text ThisWindow = u"%1(このウィンドウ)";
inline constexpr Text Choose = u"前面に表示するウィンドウを選択してください。";
/// %1 is the file.
inline constexpr Text OpenModified =
    u"「%1」は別のウィンドウで開かれていて、保存していない変更があります。";
inline constexpr Text SwitchToOther = u"開いているウィンドウへ切り替える";
inline constexpr Text OpenAgain = u"もう一度開く";

} // namespace quillon::resources::window_texts
