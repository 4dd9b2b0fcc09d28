#pragma once

#include "schemas/document_schemas.h"

#include <QPushButton>

namespace quillon::app {

/// The button in the status bar that says which schema the document has. A long line is shortened
/// in its middle.
class SchemaButton : public QPushButton {
    Q_OBJECT

public:
    SchemaButton(const schemas::DocumentSchemas &schemas, const state::DocumentState &state);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    void showSummary();

    const schemas::DocumentSchemas &schemas_;
    const state::DocumentState &state_;
};

} // namespace quillon::app
