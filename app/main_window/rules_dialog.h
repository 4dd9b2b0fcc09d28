#pragma once

#include "schemas/schema_settings.h"

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;
class QTableWidget;
class QVBoxLayout;

namespace quillon::app {

class Editor;

/// The user's rules for which documents which schemas are, and the user's catalogs. What is wrong
/// with a rule is told, and keeps the dialog open.
class RulesDialog : public QDialog {
    Q_OBJECT

public:
    RulesDialog(Editor &editor, QWidget *parent);

    void accept() override;

private:
    QWidget *ruleButtons();
    QWidget *catalogsGroup();
    QPushButton *addButton(QVBoxLayout &column, QStringView caption, const char *name,
                           void (RulesDialog::*press)());
    void addRow(int row, const schemas::SchemaRule &rule);
    schemas::SchemaRule ruleAt(int row) const;

    void addRule();
    void changeSchema();
    void removeRule();
    void moveUp() { move(-1); }
    void moveDown() { move(+1); }
    void move(int step);
    void addCatalog();
    void removeCatalog();
    void showState();

    Editor &editor_;
    /// As they were when the dialog was opened.
    const std::vector<schemas::SchemaRule> before_;
    QTableWidget *table_;
    QLabel *fault_;
    QPushButton *change_ = nullptr;
    QPushButton *remove_ = nullptr;
    QPushButton *up_ = nullptr;
    QPushButton *down_ = nullptr;
    QListWidget *catalogs_;
    QPushButton *removeCatalog_ = nullptr;
};

} // namespace quillon::app
