#include "settings/settings.h"

#include "platform/runtime/error.h"
#include "platform/runtime/numbers.h"
#include "resources/runtime_errors.h"
#include "resources/texts.h"

#include <algorithm>
#include <limits>

namespace quillon::settings {

namespace texts = resources::texts;

namespace {

const QString FontSection = QStringLiteral("Font");
const QString WindowSection = QStringLiteral("Application");
const QString EditorSection = QStringLiteral("Programs");

QString numbered(const char *word, int number) {
    return QLatin1String(word) + QString::number(number);
}

/// The keys of a placement in the order in which they are read.
constexpr std::pair<const char *, int Placement::*> PlacementKeys[] = {
    {"Left", &Placement::left},           {"Top", &Placement::top},
    {"Width", &Placement::width},         {"Height", &Placement::height},
    {"SplitLeft", &Placement::splitLeft}, {"SplitTop", &Placement::splitTop},
};

} // namespace

Settings::Settings(const system::SettingsStore &store)
    : fontName(texts::DefaultFontName.toString()), fontSize(texts::DefaultFontSize), store_(store) {
}

template <typename Number>
void Settings::read(const QString &section, const QString &key, Number &value) const {
    const QString text = store_.GetSetting(section, key);
    // The default, a place on a wide desktop for one, need not fit what can be stored.
    if (text.isEmpty())
        return;
    try {
        value = runtime::toInteger(text);
    } catch (const runtime::Error &error) {
        if (report)
            report(texts::BrokenSetting.toString().arg(section, key, text, error.description()));
    }
}

void Settings::load(Placement &placement) {
    fontName = store_.GetSetting(FontSection, QStringLiteral("Name"), fontName);
    read(FontSection, QStringLiteral("Size"), fontSize);
    if (fontSize < 1) {
        if (report)
            report(texts::BrokenSetting.toString().arg(
                FontSection, QStringLiteral("Size"), QString::number(fontSize),
                resources::runtimeErrorText(runtime::error_number::InvalidProcedureCall)));
        fontSize = texts::DefaultFontSize;
    }
    for (const auto &[key, member] : PlacementKeys)
        read(WindowSection, QLatin1String(key), placement.*member);
    qint16 isMaximized = 0;
    read(WindowSection, QStringLiteral("Maximized"), isMaximized);
    maximized = isMaximized != 0;
    readEditors();
}

void Settings::readEditors() {
    editors.clear();
    for (int i = 0; i < MostExternalEditors; ++i) {
        const ExternalEditor editor{store_.GetSetting(EditorSection, numbered("Name", i)),
                                    store_.GetSetting(EditorSection, numbered("Path", i))};
        if (editor.name.isEmpty() || editor.path.isEmpty())
            return;
        if (std::any_of(editors.begin(), editors.end(), [&](const ExternalEditor &present) {
                return present.name == editor.name;
            })) {
            if (report)
                report(texts::DuplicateEditor.toString().arg(editor.name));
            return;
        }
        editors.push_back(editor);
    }
}

void Settings::saveEditors() const {
    writeEditors();
    for (int i = static_cast<int>(editors.size()); i < MostExternalEditors; ++i) {
        store_.SaveSetting(EditorSection, numbered("Name", i), QString());
        store_.SaveSetting(EditorSection, numbered("Path", i), QString());
    }
}

void Settings::write(const QString &section, const QString &key, int value) const {
    constexpr int Least = std::numeric_limits<qint16>::min();
    constexpr int Most = std::numeric_limits<qint16>::max();
    store_.SaveSetting(section, key, QString::number(std::clamp(value, Least, Most)));
}

void Settings::save(const Placement &placement, bool isNormal) const {
    store_.SaveSetting(FontSection, QStringLiteral("Name"), fontName);
    write(FontSection, QStringLiteral("Size"), fontSize);
    if (isNormal) {
        for (const auto &[key, member] : PlacementKeys)
            write(WindowSection, QLatin1String(key), placement.*member);
    }
    // Truth is -1 where it is stored.
    write(WindowSection, QStringLiteral("Maximized"), maximized ? -1 : 0);
    writeEditors();
}

void Settings::writeEditors() const {
    for (std::size_t i = 0; i < editors.size(); ++i) {
        const int number = static_cast<int>(i);
        store_.SaveSetting(EditorSection, numbered("Name", number), editors[i].name);
        store_.SaveSetting(EditorSection, numbered("Path", number), editors[i].path);
    }
}

} // namespace quillon::settings
