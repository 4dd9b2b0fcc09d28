#pragma once

#include "validation/validation.h"

#include <QDialog>

#include <functional>

class QListWidget;

namespace quillon::app {

/// The list of what the latest validation has found. Choosing an entry leads to its node.
class ValidationList : public QDialog {
    Q_OBJECT

public:
    using Show = std::function<void(const xml::Node &node)>;

    ValidationList(QWidget *parent, Show show);

    void setErrors(const std::vector<validation::ValidationError> &errors);

private:
    QListWidget *list_;
    std::vector<validation::ValidationError> errors_;
};

} // namespace quillon::app
