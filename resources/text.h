#pragma once

#include <QString>
#include <QStringView>

#include <cstddef>

namespace quillon::resources {

/// A text that the user sees: written in the code in Japanese, read in the language in force
/// (resources/language.h), or in Japanese where that language's catalogue does not have it.
/// The language counts when the text is read, so tables made ahead of that hold Text, not what one
/// reads from it.
class Text {
public:
    constexpr Text() = default;
    /// From u"...". `note` tells two texts apart that are the same in Japanese but not in another
    /// language; it stands with the text in the catalogues.
    template <std::size_t Size>
    constexpr Text(const char16_t (&japanese)[Size], const char *note = nullptr)
        : japanese_(japanese), length_(qsizetype(Size) - 1), note_(note) {}

    QString toString() const;
    /// The view stays valid until the program ends.
    operator QStringView() const;

    constexpr QStringView japanese() const { return {japanese_, length_}; }
    constexpr bool isEmpty() const { return length_ == 0; }

    friend bool operator==(QStringView text, const Text &other) {
        return text == QStringView(other);
    }
    friend bool operator==(const Text &text, const Text &other) {
        return text == QStringView(other);
    }

private:
    /// What the catalogue in force has for it. Null for none.
    const QString *translated() const;

    const char16_t *japanese_ = u"";
    qsizetype length_ = 0;
    const char *note_ = nullptr;
};

} // namespace quillon::resources
