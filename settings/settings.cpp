#include "settings/settings.h"

#include "platform/runtime/error.h"
#include "platform/runtime/numbers.h"
#include "resources/runtime_errors.h"
#include "resources/texts.h"

#include <algorithm>

namespace quillon::settings {

namespace texts = resources::texts;

namespace {

/// One function for every type of value.
template <typename... Functions>
struct ByType : Functions... {
    using Functions::operator()...;
};

/// Puts the defaults in place.
void initialize(Values &values) {
    for (const SettingRow &row : settingTable()) {
        std::visit(ByType{
                       [&](QString Values::*at) { values.*at = row.initial.toString(); },
                       [&](qint16 Values::*at) { values.*at = row.initial.toShort(); },
                       [&](bool Values::*at) { values.*at = row.initial != u"0"; },
                       [](int Placement::*) {},
                   },
                   row.value);
    }
}

} // namespace

Settings::Settings(const system::SettingsStore &store) : store_(store) {
    initialize(*this);
}

QString Settings::text(const SettingRow &row) const {
    return store_.GetSetting(row.section.toString(), row.key.toString(), row.initial.toString());
}

void Settings::tell(const SettingRow &row, const QString &value, const QString &fault) const {
    if (report)
        report(texts::BrokenSetting.toString().arg(row.section, row.key, value, fault));
}

std::optional<qint16> Settings::number(const SettingRow &row) const {
    const QString stored = text(row);
    if (stored.isEmpty())
        return {};
    try {
        const qint16 value = runtime::toInteger(stored);
        if (value >= row.least)
            return value;
        tell(row, QString::number(value),
             resources::runtimeErrorText(runtime::error_number::InvalidProcedureCall));
    } catch (const runtime::Error &error) {
        tell(row, stored, error.description());
    }
    return {};
}

void Settings::load(Placement &placement) {
    for (const SettingRow &row : settingTable()) {
        std::visit(ByType{
                       [&](QString Values::*at) { this->*at = text(row); },
                       [&](qint16 Values::*at) { this->*at = number(row).value_or(this->*at); },
                       [&](bool Values::*at) { this->*at = number(row).value_or(this->*at) != 0; },
                       [&](int Placement::*at) {
                           // What it was, on a wide desktop, need not fit what can be stored.
                           if (const std::optional<qint16> stored = number(row))
                               placement.*at = *stored;
                       },
                   },
                   row.value);
    }
    readEditors();
}

void Settings::readEditors() {
    editors.clear();
    for (int i = 0; i < EditorNames.most; ++i) {
        const ExternalEditor editor{EditorNames.read(store_, i), EditorPaths.read(store_, i)};
        if (editor.name.isEmpty() || editor.path.isEmpty())
            return;
        if (std::ranges::count(editors, editor.name, &ExternalEditor::name) != 0) {
            if (report)
                report(texts::DuplicateEditor.toString().arg(editor.name));
            return;
        }
        editors.push_back(editor);
    }
}

void Settings::write(const SettingRow &row, int number) const {
    constexpr int Least = std::numeric_limits<qint16>::min();
    constexpr int Most = std::numeric_limits<qint16>::max();
    store_.SaveSetting(row.section.toString(), row.key.toString(),
                       QString::number(std::clamp(number, Least, Most)));
}

void Settings::save(const Placement &placement, bool isNormal) const {
    for (const SettingRow &row : settingTable()) {
        std::visit(ByType{
                       [&](QString Values::*at) {
                           store_.SaveSetting(row.section.toString(), row.key.toString(),
                                              this->*at);
                       },
                       [&](qint16 Values::*at) { write(row, this->*at); },
                       [&](bool Values::*at) { write(row, this->*at ? -1 : 0); },
                       [&](int Placement::*at) {
                           if (isNormal)
                               write(row, placement.*at);
                       },
                   },
                   row.value);
    }
    writeEditors();
}

void Settings::saveEditors() const {
    writeEditors();
    for (auto i = qsizetype(editors.size()); i < EditorNames.most; ++i) {
        EditorNames.write(store_, i, QString());
        EditorPaths.write(store_, i, QString());
    }
}

void Settings::saveAtOnce(QString Values::*value) const {
    const SettingRow row = settingRow(value);
    store_.SaveSetting(row.section.toString(), row.key.toString(), this->*value);
}

void Settings::reread(QString Values::*value) {
    this->*value = text(settingRow(value));
}

void Settings::writeEditors() const {
    for (qsizetype i = 0; i < qsizetype(editors.size()); ++i) {
        EditorNames.write(store_, i, editors[std::size_t(i)].name);
        EditorPaths.write(store_, i, editors[std::size_t(i)].path);
    }
}

} // namespace quillon::settings
