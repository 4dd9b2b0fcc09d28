#pragma once

#include "edit/child_sorting.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace quillon::tools {

/// Asks what the children of an element are to be sorted by. An attribute or expression that is
/// missing is told beside the fields and keeps the dialog open.
class SortDialog : public QDialog {
    Q_OBJECT

public:
    SortDialog(const edit::SortOrder &present, QWidget *parent);

    edit::SortOrder order() const;
    void accept() override;

private:
    QWidget *keyFields();
    void enableFields();

    QRadioButton *byName_;
    QRadioButton *byAttribute_;
    QRadioButton *byPath_;
    QLineEdit *attribute_;
    QLineEdit *path_;
    QLabel *fault_;
    QCheckBox *descending_;
};

} // namespace quillon::tools
