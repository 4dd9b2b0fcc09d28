#pragma once

#include <QString>

namespace quillon::settings {

/// A program that the document's file can be opened with.
struct ExternalEditor {
    /// What the menu calls it.
    QString name;
    /// The path of the program.
    QString path;

    bool operator==(const ExternalEditor &) const = default;
};

} // namespace quillon::settings
