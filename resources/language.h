#pragma once

#include <QLocale>
#include <QString>
#include <QStringView>

#include <span>

namespace quillon::resources {

/// A language of the user interface.
struct Language {
    /// E.g. "en", by which its catalogue is called "quillon_en".
    QStringView code;
    /// What it calls itself.
    QStringView name;
};

/// In place of a code: the language of the desktop.
inline constexpr QStringView SystemLanguage = u"system";

/// All that there are; the first one is Japanese, in which the texts are written.
std::span<const Language> languages();

/// The one of a code. For SystemLanguage it is the first one that the desktop prefers, or English
/// where it prefers none of them; for any other code it is Japanese.
const Language &languageOf(QStringView code, const QLocale &desktop);

/// From now on texts are read in this language. What has been shown already stays as it is.
void setLanguage(const Language &language);
/// The one in force; Japanese until another one has been set.
const Language &language();

/// How numbers and dates are written in a language: as on the desktop where that is of the same
/// one.
QLocale localeOf(const Language &language);

} // namespace quillon::resources
