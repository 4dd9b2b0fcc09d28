#include "app/main_window/validation_list.h"

#include "platform/ui/error_boundary.h"
#include "resources/texts.h"
#include "resources/validation_texts.h"

#include <QListWidget>
#include <QVBoxLayout>

namespace quillon::app {

namespace texts = resources::texts;

namespace {

constexpr QSize Size(640, 320);

QString textOf(const validation::ValidationError &error) {
    const QString reason = QString(error.reason).replace(QLatin1Char('\n'), QLatin1Char(' '));
    return error.line == 0
               ? reason
               : resources::validation_texts::AtLine.toString().arg(error.line).arg(reason);
}

} // namespace

ValidationList::ValidationList(QWidget *parent, Show show)
    : QDialog(parent), list_(new QListWidget(this)) {
    setWindowTitle(texts::ValidationListTitle.toString());
    list_->setAccessibleName(windowTitle());
    list_->setWordWrap(true);
    auto *column = new QVBoxLayout(this);
    column->addWidget(list_);
    resize(Size);
    connect(list_, &QListWidget::currentRowChanged, this, [this, show = std::move(show)](int row) {
        if (row >= 0)
            ui::guarded([&] { show(errors_[static_cast<std::size_t>(row)].node); });
    });
}

void ValidationList::setErrors(const std::vector<validation::ValidationError> &errors) {
    list_->clear();
    errors_ = errors;
    for (const validation::ValidationError &error : errors_)
        list_->addItem(textOf(error));
    setVisible(isVisible() && !errors_.empty());
}

} // namespace quillon::app
