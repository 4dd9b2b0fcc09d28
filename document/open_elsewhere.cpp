#include "document/open_elsewhere.h"

#include "platform/runtime/file_names.h"
#include "platform/runtime/paths.h"
#include "platform/ui/dialogs.h"
#include "resources/window_texts.h"

#include <algorithm>

namespace quillon::document {

namespace texts = resources::window_texts;

bool isSettledElsewhere(const system::OpenWindows &windows, const QString &path) {
    using Other = system::OpenWindows::Other;
    const std::vector<Other> found = windows.othersWith(runtime::absolutePath(path));
    if (found.empty())
        return false;
    const auto modified =
        std::ranges::find_if(found, [](const Other &other) { return other.note.isModified; });
    if (modified == found.end())
        return windows.callToFront(found.front());
    const std::optional<int> choice = ui::dialogs().chooseOne(
        texts::OpenModified.toString().arg(runtime::shownPath(runtime::fileName(path))),
        {texts::SwitchToOther.toString(), texts::OpenAgain.toString()});
    if (!choice)
        return true;
    return *choice == 0 && windows.callToFront(*modified);
}

} // namespace quillon::document
