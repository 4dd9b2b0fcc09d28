#pragma once

#include "platform/system/settings_store.h"
#include "settings/external_editor.h"

#include <QString>

#include <functional>
#include <vector>

namespace quillon::settings {

/// Where the window and its splitters stand, in twips. All are 16-bit numbers in the store, so no
/// more than 32767 can be kept.
struct Placement {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    int splitLeft = 0;
    int splitTop = 0;
};

/// The user's settings (`basSetting`), kept as texts in the settings store.
class Settings {
public:
    explicit Settings(const system::SettingsStore &store);

    /// Reads everything. What is missing keeps the default, which for the placement is what the
    /// window has at the time. A value that cannot be converted does so, too, and is reported.
    void load(Placement &placement);
    /// Writes everything. The placement is written only when the window is in its normal state;
    /// else the one before stays. Editors that were taken off the end of the list stay in the
    /// store and come back; saveEditors() is what takes them out.
    void save(const Placement &placement, bool isNormal) const;

    /// Writes the editors, and empties the places behind them: those that were there have been
    /// removed by the user in so many words.
    void saveEditors() const;

    /// Font of the edit pane, the tree and, by its name, the path box. Size in points.
    QString fontName;
    qint16 fontSize;
    /// At most eleven, in order.
    std::vector<ExternalEditor> editors;
    /// The window fills its screen.
    bool maximized = false;

    /// Receives the descriptions of values that could not be converted.
    std::function<void(const QString &)> report;

private:
    template <typename Number>
    void read(const QString &section, const QString &key, Number &value) const;
    void readEditors();
    void writeEditors() const;
    void write(const QString &section, const QString &key, int value) const;

    const system::SettingsStore &store_;
};

} // namespace quillon::settings
