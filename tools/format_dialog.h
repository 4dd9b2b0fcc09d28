#pragma once

#include "edit/pretty_printing.h"
#include "settings/settings_table.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace quillon::tools {

/// The style that the settings ask for.
xml::LayoutStyle layoutStyle(const settings::Values &values);

/// Asks how the document is to be laid out, and shows what would become of it.
class FormatDialog : public QDialog {
    Q_OBJECT

public:
    /// Begins with what the settings say.
    FormatDialog(const edit::PrettyPrinting &printing, const settings::Values &values,
                 const QFont &textFont, QWidget *parent);

    /// What has been chosen: for the settings, and where.
    void keep(settings::Values &values) const;
    edit::PrettyPrinting::Scope scope() const;

private:
    QWidget *scopeGroup(bool hasElements);
    QWidget *indentGroup(const settings::Values &values);
    QWidget *tagFields(const settings::Values &values);
    QWidget *previewSide(const QFont &textFont);
    void enableFields();
    void showPreview();
    void showLines();

    const edit::PrettyPrinting &printing_;
    edit::LayoutPreview preview_;

    QRadioButton *document_ = nullptr;
    QRadioButton *elements_ = nullptr;
    QRadioButton *blanks_ = nullptr;
    QRadioButton *tab_ = nullptr;
    QSpinBox *indent_ = nullptr;
    QCheckBox *blankLines_ = nullptr;
    QComboBox *attributes_ = nullptr;
    QSpinBox *width_ = nullptr;
    QCheckBox *aligns_ = nullptr;
    QComboBox *empty_ = nullptr;
    QRadioButton *after_ = nullptr;
    QRadioButton *before_ = nullptr;
    QPlainTextEdit *text_ = nullptr;
    QLabel *count_ = nullptr;
};

} // namespace quillon::tools
