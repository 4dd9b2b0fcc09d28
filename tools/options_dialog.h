#pragma once

#include "settings/settings_table.h"
#include "view/controls/theme.h"

#include <QDialog>
#include <QString>

#include <vector>

class QCheckBox;
class QComboBox;
class QFontComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QSpinBox;
class QWidget;

namespace quillon::tools {

/// What the options dialog shows at first, and what the user has made of it.
struct Options {
    std::vector<settings::ExternalEditor> editors;
    /// Font of the edit pane and the tree; the size in points.
    QString fontName;
    int fontSize = 0;
    controls::ThemeMode theme = controls::ThemeMode::Automatic;
    /// The code of a language, or resources::SystemLanguage.
    QString language = {};
    /// The first page is shown while there is no document.
    bool firstPage = true;
    /// Out: the list of recent files is to be emptied.
    bool clearRecentFiles = false;
};

/// The dialog of the Tool menu for the user's settings. It works on a copy: the caller puts what
/// options() gives into force when exec() has returned Accepted. Input that does not fit is told
/// beside its field and keeps the dialog open.
class OptionsDialog : public QDialog {
    Q_OBJECT

public:
    /// `recentFiles`: how many there are to be cleared.
    OptionsDialog(const Options &present, qsizetype recentFiles, QWidget *parent);

    Options options() const;
    /// Closes the dialog when everything fits; else leads to the field that does not.
    void accept() override;

private:
    QWidget *editorsGroup();
    QWidget *editorFields();
    QWidget *fontGroup(const Options &present);
    QWidget *appearanceGroup(const Options &present);
    QWidget *recentFilesGroup(qsizetype recentFiles);

    void showEditors(int current);
    void showCurrentEditor();
    void addEditor();
    void removeEditor();
    void moveEditor(int by);
    void chooseProgram();
    void takeFields();
    void enableButtons();
    void showSample();

    QString nameFault(int row) const;
    QString programFault(int row) const;
    /// Tells what is wrong with the editor of a row, or that nothing is, beside its fields.
    void showFaults(int row);

    std::vector<settings::ExternalEditor> editors_;
    bool clearRecentFiles_ = false;

    QListWidget *list_;
    QPushButton *add_;
    QPushButton *up_;
    QPushButton *down_;
    QPushButton *remove_;
    QLineEdit *name_;
    QLabel *nameFault_;
    QLineEdit *program_;
    QPushButton *browse_;
    QLabel *programFault_;
    QFontComboBox *font_;
    QLabel *fontFault_;
    QSpinBox *size_;
    QComboBox *theme_;
    QComboBox *language_;
    QCheckBox *firstPage_;
    QLabel *sample_;
    QPushButton *clear_;
};

} // namespace quillon::tools
