#include "app/main_window/open_window_list.h"

#include "platform/runtime/file_names.h"
#include "resources/window_texts.h"

#include <QFileInfo>

#include <algorithm>

namespace quillon::app {

namespace texts = resources::window_texts;

OpenWindowList::OpenWindowList(const system::OpenWindows &windows)
    : windows_(windows), others_(windows.others()) {
    std::vector<system::WindowNote> notes{windows.note()};
    for (const system::OpenWindows::Other &other : others_)
        notes.push_back(other.note);
    for (const system::WindowNote &note : notes) {
        const auto alike = std::ranges::count(notes, note.caption, &system::WindowNote::caption);
        QString name = note.caption;
        if (alike > 1 && !note.path.isEmpty())
            name = texts::InFolder.toString().arg(
                name, runtime::shownPath(QFileInfo(note.path).absolutePath()));
        names_.append(names_.isEmpty() ? texts::ThisWindow.toString().arg(name) : name);
    }
}

bool OpenWindowList::callToFront(int at) const {
    return at > 0 && windows_.callToFront(others_[std::size_t(at) - 1]);
}

} // namespace quillon::app
