#pragma once

#include "platform/system/settings_store.h"
#include "settings/external_editor.h"

#include <QStringList>
#include <QStringView>

#include <functional>
#include <limits>
#include <span>
#include <variant>
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

/// What the program goes by.
struct Values {
    /// Font of the edit pane, the tree and, by its name, the path box. Size in points.
    QString fontName;
    qint16 fontSize = 0;
    /// The window fills its screen.
    bool maximized = false;
    /// The panel with the lists: whether it is shown, and its height in twips.
    bool panelShown = false;
    qint16 panelHeight = 0;
    /// The panel with what may be inserted: whether it is shown, and its width in twips.
    bool candidatesShown = false;
    qint16 candidatesWidth = 0;
    /// What can be typed into the pane is proposed without being asked for.
    bool proposesUnasked = false;
    /// How the pane shows its text: long lines are wrapped, blanks are to be seen, lines are
    /// numbered as in the file.
    bool wrapsPane = false;
    bool showsBlanks = false;
    bool showsFileLines = false;
    /// "</" is made an end tag.
    bool closesElements = true;
    /// How large tree, pane and preview are shown, in percent.
    qint16 zoom = 100;
    /// The document is checked by its schemas while it is edited.
    bool liveValidation = true;
    /// In whose colours the program is shown: "Automatic", "Light" or "Dark".
    QString themeMode;
    /// The code of the language of the interface, or resources::SystemLanguage. It comes into force
    /// when the program starts.
    QString language;
    /// The first page is shown while there is no document.
    bool firstPage = true;
    /// What is printed on, by its name; its margins in hundredths of a millimetre.
    QString paper;
    bool isLandscape = false;
    qint16 marginLeft = 0;
    qint16 marginTop = 0;
    qint16 marginRight = 0;
    qint16 marginBottom = 0;
    /// How a document is laid out: by tabs or so many blanks, what becomes of attributes and of
    /// empty elements, as xml::LayoutStyle numbers it, and the width of a line in columns.
    bool formatTabs = false;
    qint16 formatIndent = 2;
    qint16 formatAttributes = 1;
    qint16 formatWidth = 100;
    bool formatAligns = true;
    qint16 formatEmpty = 0;
    bool formatBlankLines = true;
    /// At most as many as EditorNames holds, in order.
    std::vector<ExternalEditor> editors;
};

/// One setting. In the store all are texts; a truth is -1 or 0.
struct SettingRow {
    QStringView section;
    QStringView key;
    /// Where its value is, and with that of what type it is.
    std::variant<QString Values::*, qint16 Values::*, bool Values::*, int Placement::*> value;
    /// What holds when it is missing, as it would be stored. A placement has none: the window stays
    /// where it is.
    QStringView initial = {};
    /// Of a number. A smaller one in the store is a broken setting.
    int least = std::numeric_limits<qint16>::min();
    /// The largest number that the options dialog offers; it keeps a larger one that it finds.
    int mostOffered = std::numeric_limits<qint16>::max();
};

/// Every setting with one value, in the order in which they are read and written.
std::span<const SettingRow> settingTable();
/// The row of a value, e.g. &Values::fontSize.
const SettingRow &settingRow(const decltype(SettingRow::value) &value);

/// A list of texts, whose keys are a word and a number.
struct SettingList {
    QStringView section;
    QStringView word;
    int first;
    /// So many are read.
    int most;

    /// Positions count from 0, whatever the first number is. Empty for what is missing.
    QString read(const system::SettingsStore &store, qsizetype position) const;
    void write(const system::SettingsStore &store, qsizetype position, const QString &text) const;
};

/// A list of texts of one line each under one key, which grows at its end.
struct SettingLines {
    QStringView section;
    QStringView key;
    /// So many are kept, the last ones.
    int most;

    QStringList read(const system::SettingsStore &store) const;
    void write(const system::SettingsStore &store, const QStringList &lines) const;
    /// Has the lines changed by a function while no other window changes them.
    void change(const system::SettingsStore &store,
                const std::function<void(QStringList &lines)> &edit) const;
};

inline constexpr SettingLines PathQueries{u"Application", u"PathQueries", 30};
/// The names of the commands that were run last from the box that finds them, the latest at the
/// end.
inline constexpr SettingLines UsedCommands{u"Application", u"UsedCommands", 12};
/// Which documents schemas are for, and which have been chosen for single documents.
inline constexpr SettingLines SchemaRules{u"Schemas", u"Rules", 500};
inline constexpr SettingLines SchemaChoices{u"Schemas", u"Choices", 200};
inline constexpr SettingLines SchemaCatalogs{u"Schemas", u"Catalogs", 20};

/// Where documents have been sent, without passwords.
inline constexpr SettingLines SentAddresses{u"Tools", u"SentAddresses", 10};

inline constexpr SettingList EditorNames{u"Programs", u"Name", 0, 11};
inline constexpr SettingList EditorPaths{u"Programs", u"Path", 0, 11};
inline constexpr SettingList RecentFileList{u"MRU", u"File", 1, 10};

} // namespace quillon::settings
