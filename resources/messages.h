#pragma once

#include <QString>

namespace quillon::resources {

/// The main window's messages by the number the code uses; the string table holds message n under
/// 1000 + n.
namespace message {
constexpr int RootCannotBeDeleted = 5;
constexpr int ConfirmDelete = 6;
constexpr int ConfirmReload = 7;
constexpr int CannotParse = 8;
constexpr int RootAlreadyExists = 9;
constexpr int AboutTitle = 10;
constexpr int ConfirmSave = 12;
constexpr int CannotPreview = 13;
constexpr int ValidationSucceeded = 14;
} // namespace message

/// The text of message n. Raises std::out_of_range for a number that the table does not hold.
QString messageText(int n);

} // namespace quillon::resources
