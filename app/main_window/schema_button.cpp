#include "app/main_window/schema_button.h"

#include "resources/schema_box_texts.h"
#include "resources/schema_link_texts.h"

namespace quillon::app {

namespace texts = resources::schema_box_texts;

namespace {

/// So that the status bar keeps most of its room for texts.
constexpr int LongestText = 380;
constexpr int Padding = 16;

} // namespace

SchemaButton::SchemaButton(const schemas::DocumentSchemas &schemas,
                           const state::DocumentState &state)
    : schemas_(schemas), state_(state) {
    setObjectName(QStringLiteral("schemaButton"));
    setFlat(true);
    connect(&schemas, &schemas::DocumentSchemas::changed, this, &SchemaButton::showSummary);
    showSummary();
}

void SchemaButton::showSummary() {
    const bool hasDocument = state_.showsDocument();
    const auto lineOf = [](const QString &words) {
        return words == resources::schema_link_texts::NoSchema
                   ? words
                   : texts::Button.toString().arg(words);
    };
    const QString whole = lineOf(hasDocument ? schemas_.summary() : texts::NoDocument.toString());
    const QString line = hasDocument ? lineOf(schemas_.shortSummary()) : whole;
    setAccessibleName(whole);
    setToolTip(texts::ButtonTip.toString().arg(whole));
    // A name may hold what would be an access key.
    setText(fontMetrics()
                .elidedText(line, Qt::ElideMiddle, LongestText)
                .replace(u'&', QLatin1String("&&")));
}

QSize SchemaButton::sizeHint() const {
    return {fontMetrics().horizontalAdvance(QString(text()).replace(QLatin1String("&&"), "&")) +
                Padding,
            QPushButton::sizeHint().height()};
}

QSize SchemaButton::minimumSizeHint() const {
    return sizeHint();
}

} // namespace quillon::app
