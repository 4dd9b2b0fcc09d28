#pragma once

#include "edit/encoding_commands.h"

#include <QDialog>

#include <vector>

class QComboBox;
class QLabel;
class QPushButton;
class QTreeWidget;

namespace quillon::tools {

/// Asks what the document is to be saved in, and lists what of it that cannot hold.
class EncodingDialog : public QDialog {
    Q_OBJECT

public:
    EncodingDialog(const edit::EncodingCommands &commands, QWidget *parent);

    xml::FileEncoding encoding() const;
    xml::LineEnds lineEnds() const;
    /// Where the user wants to go instead of changing anything; empty for nowhere.
    xml::Node place() const { return place_; }

private:
    QWidget *fields();
    QWidget *unheldList();
    void check();
    void showSum();
    void goToCurrent();

    const edit::EncodingCommands &commands_;
    std::vector<xml::FileEncoding> encodings_;
    xml::EncodingCheck found_;
    xml::Node place_;

    QComboBox *encoding_ = nullptr;
    QComboBox *lineEnds_ = nullptr;
    QTreeWidget *list_ = nullptr;
    QLabel *sum_ = nullptr;
    QPushButton *change_ = nullptr;
    QPushButton *goTo_ = nullptr;
};

} // namespace quillon::tools
