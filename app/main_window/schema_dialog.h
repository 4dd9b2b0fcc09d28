#pragma once

#include "schemas/schema_link.h"

#include <QDialog>

#include <functional>
#include <vector>

class QLabel;
class QPushButton;
class QTreeWidget;
class QVBoxLayout;

namespace quillon::app {

class Editor;

/// Everything that names a schema for the document, with how it was found and whether it counts,
/// and what can be done about it. It follows the document as long as it is open.
class SchemaDialog : public QDialog {
    Q_OBJECT

public:
    SchemaDialog(Editor &editor, QWidget *parent);

private:
    /// A row: a schema, or a part of one that is missing.
    struct Row {
        QString path;
        QString fetchable;
        QString details;
    };

    QPushButton *addButton(QStringView caption, QStringView tip, const char *name,
                           std::function<void()> press);
    void addButtons(QVBoxLayout &column);
    void showLinks();
    void addLink(const schemas::SchemaLink &link);
    void addMissing(const QString &name, const std::vector<schemas::SchemaLink> &links);
    void addRow(const QStringList &cells, bool isInForce, Row row);
    void showRow();
    const Row *currentRow() const;

    Editor &editor_;
    QTreeWidget *list_;
    QLabel *details_;
    std::vector<Row> rows_;
    QVBoxLayout *buttons_ = nullptr;
    QPushButton *forget_ = nullptr;
    QPushButton *fetch_ = nullptr;
    QPushButton *open_ = nullptr;
    QPushButton *bind_ = nullptr;
    QPushButton *create_ = nullptr;
    QPushButton *choose_ = nullptr;
    QPushButton *clear_ = nullptr;
};

} // namespace quillon::app
