#include "settings/settings_table.h"

#include <algorithm>

namespace quillon::settings {

namespace {

constexpr SettingRow Rows[] = {
    {u"Font", u"Name", &Values::fontName, u"MS UI Gothic"},
    {u"Font", u"Size", &Values::fontSize, u"10", 1, 144},
    {u"Application", u"Left", &Placement::left},
    {u"Application", u"Top", &Placement::top},
    {u"Application", u"Width", &Placement::width},
    {u"Application", u"Height", &Placement::height},
    {u"Application", u"SplitLeft", &Placement::splitLeft},
    {u"Application", u"SplitTop", &Placement::splitTop},
    {u"Application", u"Maximized", &Values::maximized, u"0"},
    {u"Panel", u"Shown", &Values::panelShown, u"0"},
    {u"Panel", u"Height", &Values::panelHeight, u"2700", 0},
    {u"Candidates", u"Shown", &Values::candidatesShown, u"0"},
    {u"Candidates", u"Width", &Values::candidatesWidth, u"4500", 0},
    {u"Pane", u"ProposeUnasked", &Values::proposesUnasked, u"-1"},
    {u"Pane", u"Wrap", &Values::wrapsPane, u"0"},
    {u"Pane", u"Blanks", &Values::showsBlanks, u"0"},
    {u"Pane", u"FileLines", &Values::showsFileLines, u"0"},
    {u"Pane", u"CloseElements", &Values::closesElements, u"-1"},
    {u"View", u"Zoom", &Values::zoom, u"100", 1, 500},
    {u"Validation", u"Live", &Values::liveValidation, u"-1"},
    {u"Theme", u"Mode", &Values::themeMode, u"Automatic"},
    {u"Application", u"Language", &Values::language, u"ja"},
    {u"FirstPage", u"Shown", &Values::firstPage, u"-1"},
    {u"Print", u"Paper", &Values::paper, u"A4"},
    {u"Print", u"Landscape", &Values::isLandscape, u"0"},
    {u"Print", u"MarginLeft", &Values::marginLeft, u"1500", 0},
    {u"Print", u"MarginTop", &Values::marginTop, u"1500", 0},
    {u"Print", u"MarginRight", &Values::marginRight, u"1500", 0},
    {u"Print", u"MarginBottom", &Values::marginBottom, u"1500", 0},
    {u"Format", u"Tabs", &Values::formatTabs, u"0"},
    {u"Format", u"Indent", &Values::formatIndent, u"2", 1},
    {u"Format", u"Attributes", &Values::formatAttributes, u"1", 0},
    {u"Format", u"Width", &Values::formatWidth, u"100", 20},
    {u"Format", u"AlignAttributes", &Values::formatAligns, u"-1"},
    {u"Format", u"EmptyElements", &Values::formatEmpty, u"0", 0},
    {u"Format", u"KeepBlankLines", &Values::formatBlankLines, u"-1"},
};

QString keyOf(const SettingList &list, qsizetype position) {
    return list.word.toString() + QString::number(list.first + position);
}

} // namespace

std::span<const SettingRow> settingTable() {
    return Rows;
}

const SettingRow &settingRow(const decltype(SettingRow::value) &value) {
    return *std::ranges::find(Rows, value, &SettingRow::value);
}

QString SettingList::read(const system::SettingsStore &store, qsizetype position) const {
    return store.GetSetting(section.toString(), keyOf(*this, position));
}

void SettingList::write(const system::SettingsStore &store, qsizetype position,
                        const QString &text) const {
    store.SaveSetting(section.toString(), keyOf(*this, position), text);
}

QStringList SettingLines::read(const system::SettingsStore &store) const {
    const QString text = store.GetSetting(section.toString(), key.toString());
    const QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return lines.mid(std::max<qsizetype>(0, lines.size() - most));
}

void SettingLines::write(const system::SettingsStore &store, const QStringList &lines) const {
    store.SaveSetting(
        section.toString(), key.toString(),
        lines.mid(std::max<qsizetype>(0, lines.size() - most)).join(QLatin1Char('\n')));
}

void SettingLines::change(const system::SettingsStore &store,
                          const std::function<void(QStringList &)> &edit) const {
    const system::SettingsStore::Lock lock = store.lock();
    QStringList lines = read(store);
    edit(lines);
    write(store, lines);
}

} // namespace quillon::settings
