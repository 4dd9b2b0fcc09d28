#include "view/controls/library_texts.h"

#include "resources/qt_texts.h"

#include <algorithm>

namespace quillon::controls {

QString LibraryTexts::translate(const char *, const char *sourceText, const char *, int) const {
    // By their words alone: whose they are changes from one version of the library to the next.
    using Entry = std::pair<std::string_view, resources::Text>;
    const auto found =
        std::ranges::find(resources::qt_texts::Texts, std::string_view(sourceText), &Entry::first);
    return found != std::ranges::end(resources::qt_texts::Texts) ? found->second.toString()
                                                                 : QString();
}

} // namespace quillon::controls
