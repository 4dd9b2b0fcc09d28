#include "resources/text.h"

#include "resources/language.h"

#include <QTranslator>

#include <map>
#include <utility>

namespace quillon::resources {

namespace {

/// The texts of a language, as they have been asked for. Nothing that was found ever goes: there
/// are views of it.
class Catalogue {
public:
    explicit Catalogue(const Language &language) {
        [[maybe_unused]] const bool isThere =
            translator_.load(QStringLiteral(":/translations/quillon_%1.qm").arg(language.code));
        Q_ASSERT(isThere);
    }

    /// Null where there is none.
    const QString *find(QStringView japanese, const char *note) {
        // Unlike the text, its address is quickly looked for.
        const std::pair key(japanese.utf16(), note);
        auto found = texts_.find(key);
        if (found == texts_.end()) {
            const QByteArray source = japanese.toUtf8();
            found = texts_.emplace(key, translator_.translate("", source.constData(), note)).first;
        }
        return found->second.isNull() ? nullptr : &found->second;
    }

private:
    QTranslator translator_;
    std::map<std::pair<const char16_t *, const char *>, QString> texts_;
};

Catalogue &catalogueOf(const Language &language) {
    static std::map<const Language *, Catalogue> catalogues;
    return catalogues.try_emplace(&language, language).first->second;
}

} // namespace

const QString *Text::translated() const {
    const bool isWritten = &language() == &languages().front();
    return isWritten || isEmpty() ? nullptr : catalogueOf(language()).find(japanese(), note_);
}

QString Text::toString() const {
    const QString *const text = translated();
    return text ? *text : japanese().toString();
}

Text::operator QStringView() const {
    const QString *const text = translated();
    return text ? QStringView(*text) : japanese();
}

} // namespace quillon::resources
