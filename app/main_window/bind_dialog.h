#pragma once

#include "schemas/schema_binding.h"

#include <QDialog>

#include <optional>

class QButtonGroup;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace quillon::app {

class Editor;

/// Asks which schema is to be named in the document, and in what form, and shows what will be
/// written there.
class BindDialog : public QDialog {
    Q_OBJECT

public:
    BindDialog(Editor &editor, QWidget *parent);

    void accept() override;

private:
    QWidget *schemaField();
    void examine(const QString &path);
    void showForms();
    void fitHeight();

    Editor &editor_;
    QLineEdit *path_;
    QPushButton *browse_ = nullptr;
    QVBoxLayout *formColumn_;
    QButtonGroup *forms_;
    QPushButton *ok_;
    std::optional<schemas::BindableSchema> schema_;
};

} // namespace quillon::app
