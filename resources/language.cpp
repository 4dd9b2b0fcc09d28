#include "resources/language.h"

#include <algorithm>

namespace quillon::resources {

namespace {

constexpr Language Languages[] = {
    {u"ja", u"日本語"},
    {u"en", u"English"},
};
constexpr const Language &Japanese = Languages[0];
constexpr const Language &English = Languages[1];

const Language *inForce = &Japanese;

const Language *find(QStringView code) {
    const auto *const found = std::ranges::find(Languages, code, &Language::code);
    return found == std::end(Languages) ? nullptr : found;
}

} // namespace

std::span<const Language> languages() {
    return Languages;
}

const Language &languageOf(QStringView code, const QLocale &desktop) {
    if (code != SystemLanguage) {
        const Language *const found = find(code);
        return found ? *found : Japanese;
    }
    for (const QString &preferred : desktop.uiLanguages()) {
        if (const Language *const found = find(QStringView(preferred).left(2)))
            return *found;
    }
    return English;
}

void setLanguage(const Language &language) {
    inForce = &language;
}

const Language &language() {
    return *inForce;
}

QLocale localeOf(const Language &language) {
    const QLocale own(language.code.toString());
    const QLocale desktop = QLocale::system();
    return desktop.language() == own.language() ? desktop : own;
}

} // namespace quillon::resources
