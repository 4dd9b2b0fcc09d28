#include "platform/runtime/file_access.h"
#include "platform/runtime/file_names.h"
#include "platform/runtime/paths.h"
#include "platform/ui/message_box.h"
#include "resources/file_type_texts.h"
#include "resources/texts.h"
#include "view/controls/desktop_dialogs.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QLocale>
#include <QStringList>
#include <QStyledItemDelegate>
#include <QTreeView>

#include <filesystem>
#include <system_error>

namespace quillon::controls {

namespace {

using namespace resources;

struct Filter {
    QString description;
    QStringList patterns;

    /// As Qt's dialog takes and shows it: what the description says of the patterns itself is left
    /// out.
    QString nameFilter() const {
        QString name = description.left(description.indexOf(QLatin1String("(*"))).trimmed();
        for (const auto &[specified, shown] : file_type_texts::Shown) {
            if (name == specified)
                name = shown.toString();
        }
        return QStringLiteral("%1 (%2)").arg(name, patterns.join(u' '));
    }

    /// The extension without its dot; empty when the pattern fixes none.
    QString suffix() const {
        const QString first = patterns.value(0);
        if (!first.startsWith(QLatin1String("*.")))
            return QString();
        const QString suffix = first.sliced(2);
        return suffix.contains(u'*') || suffix.contains(u'?') ? QString() : suffix;
    }
};

QList<Filter> parseFilter(const QString &filter) {
    const QStringList parts = filter.split(u'|');
    QList<Filter> filters;
    for (qsizetype at = 0; at + 1 < parts.size(); at += 2) {
        QStringList patterns = parts[at + 1].split(u';', Qt::SkipEmptyParts);
        // "*.*" stands for all files, also those without a dot.
        patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
        filters.append({parts[at], patterns});
    }
    return filters;
}

/// The entries of a folder that Qt leaves out, as their names are not UTF-8, and what is in such
/// folders: as people read them, below the folder.
void listOtherNames(const QString &folder, const QString &shownBefore, bool all,
                    const QStringList &patterns, QStringList &found) {
    constexpr qsizetype Most = 500;
    std::error_code error;
    std::filesystem::directory_iterator entry(runtime::encodedPath(folder).toStdString(), error);
    for (; !error && entry != std::filesystem::directory_iterator() && found.size() < Most;
         entry.increment(error)) {
        const QString path =
            runtime::decodedPath(QByteArray::fromStdString(entry->path().native()));
        const QString name = runtime::fileName(path);
        if (!all && !runtime::hasForeignBytes(name))
            continue;
        const QString shown = shownBefore + runtime::shownPath(name);
        std::error_code unknown;
        if (entry->is_directory(unknown) && !entry->is_symlink(unknown))
            listOtherNames(path, shown + u'/', true, patterns, found);
        else if (patterns.isEmpty() || QDir::match(patterns, runtime::fileName(shown)))
            found.append(shown);
    }
}

/// The path whose parts read like those of a path, where they do not exist as they are written;
/// the path itself when there is none.
QString resolved(const QString &path) {
    if (runtime::fileKind(path) != runtime::FileKind::Missing)
        return path;
    QString found;
    for (const QString &part : path.split(u'/', Qt::SkipEmptyParts)) {
        const QString folder = found + u'/';
        found = folder + part;
        if (runtime::fileKind(found) != runtime::FileKind::Missing)
            continue;
        std::error_code error;
        std::filesystem::directory_iterator entry(runtime::encodedPath(folder).toStdString(),
                                                  error);
        for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
            const QString name =
                runtime::decodedPath(QByteArray::fromStdString(entry->path().filename().native()));
            if (runtime::shownPath(name) == part)
                found = folder + name;
        }
    }
    return runtime::fileKind(found) == runtime::FileKind::Missing ? path : found;
}

/// Sizes and times in the list as they are written in the program's language, and not in that of
/// the session.
class DetailDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static constexpr int SizeColumn = 1;
    static constexpr int TimeColumn = 3;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const QFileInfo file(index.data(QFileSystemModel::FilePathRole).toString());
        if (index.column() == TimeColumn)
            option->text = QLocale().toString(file.lastModified(), QLocale::ShortFormat);
        else if (!option->text.isEmpty())
            option->text = file.size() < 1024 ? file_type_texts::Bytes.toString().arg(file.size())
                                              : QLocale().formattedDataSize(file.size(), 1);
    }
};

/// Qt's own dialog and not the desktop's, which has no place for the read-only box and no say in
/// what may be chosen.
class FileDialog : public QFileDialog {
public:
    FileDialog(const ui::FileDialogRequest &request, AcceptMode mode)
        : QFileDialog(QApplication::activeWindow()), flags_(request.flags),
          filters_(parseFilter(request.filter)) {
        setOptions(DontUseNativeDialog | DontConfirmOverwrite);
        setAcceptMode(mode);
        setFileMode(AnyFile);
        const QStringView usual =
            mode == AcceptOpen ? texts::OpenDialogTitle : texts::SaveDialogTitle;
        setWindowTitle(request.title.isEmpty() ? usual.toString() : request.title);
        giveNamesRoom();
        takeTypedPaths();
        addFilters();
        if (!request.path.isEmpty())
            selectFile(request.path);
        else if (!request.folder.isEmpty())
            setDirectory(request.folder);
        if (mode == AcceptOpen)
            addOtherNames();
        if (mode == AcceptOpen && !(flags_ & ui::file_dialog_flag::HideReadOnly))
            addReadOnlyBox();
    }

    ui::FileDialogResult run() {
        showOtherNames();
        if (exec() != Accepted)
            return {QString(), flags_};
        if (readOnlyBox_)
            flags_ = (flags_ & ~ui::file_dialog_flag::ReadOnly) |
                     (readOnlyBox_->isChecked() ? ui::file_dialog_flag::ReadOnly : 0);
        return {chosenPath(), flags_};
    }

protected:
    void accept() override {
        const QString path = selectedFiles().value(0);
        if (path.isEmpty() || QFileInfo(path).isDir() || mayChoose(chosenPath()))
            QFileDialog::accept();
    }

private:
    QString chosenPath() const {
        const QString path = QFileInfo(selectedFiles().value(0)).absoluteFilePath();
        const QString known = runtime::decodedPath(QFile::encodeName(path));
        return acceptMode() == AcceptOpen ? resolved(known) : known;
    }

    /// A list of what Qt's own does not show; hidden where it would be empty.
    void addOtherNames() {
        auto *grid = qobject_cast<QGridLayout *>(layout());
        if (!grid)
            return;
        otherNames_ = new QComboBox(this);
        otherNames_->setAccessibleName(texts::OtherNamesName.toString());
        otherNames_->setPlaceholderText(texts::ChooseOtherName.toString());
        otherNamesLabel_ = new QLabel(texts::OtherNames.toString(), this);
        otherNamesLabel_->setBuddy(otherNames_);
        const int row = grid->rowCount();
        grid->addWidget(otherNamesLabel_, row, 0);
        grid->addWidget(otherNames_, row, 1, 1, -1);
        connect(this, &QFileDialog::directoryEntered, this, &FileDialog::showOtherNames);
        connect(this, &QFileDialog::filterSelected, this, &FileDialog::showOtherNames);
        connect(otherNames_, &QComboBox::textActivated, this, [this](const QString &name) {
            if (auto *list = findChild<QListView *>(QStringLiteral("listView")))
                list->selectionModel()->clearSelection();
            if (auto *edit = findChild<QLineEdit *>(QStringLiteral("fileNameEdit")))
                edit->setText(name);
        });
    }

    void showOtherNames() {
        if (!otherNames_)
            return;
        QStringList patterns;
        for (const Filter &filter : filters_) {
            if (filter.nameFilter() == selectedNameFilter())
                patterns = filter.patterns;
        }
        QStringList names;
        listOtherNames(directory().absolutePath(), QString(), false, patterns, names);
        names.sort();
        otherNames_->clear();
        otherNames_->addItems(names);
        otherNames_->setCurrentIndex(-1);
        otherNamesLabel_->setVisible(!names.isEmpty());
        otherNames_->setVisible(!names.isEmpty());
    }

    /// Qt's own sizes cut off all but short names.
    void giveNamesRoom() {
        resize(sizeHint().expandedTo(QSize(760, 480)));
        if (auto *details = findChild<QTreeView *>(QStringLiteral("treeView"))) {
            details->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
            details->header()->setSectionResizeMode(0, QHeaderView::Stretch);
            auto *delegate = new DetailDelegate(details);
            details->setItemDelegateForColumn(DetailDelegate::SizeColumn, delegate);
            details->setItemDelegateForColumn(DetailDelegate::TimeColumn, delegate);
        }
    }

    /// While a path is typed Qt selects what it leads to so far, the folder that is shown among
    /// them. With that selected there would be nothing to open.
    void takeTypedPaths() {
        auto *name = findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        auto *list = findChild<QListView *>(QStringLiteral("listView"));
        if (!name || !list)
            return;
        connect(name, &QLineEdit::textEdited, this, [list](const QString &text) {
            if (text.contains(u'/'))
                list->selectionModel()->clearSelection();
        });
    }

    void addFilters() {
        if (filters_.isEmpty())
            return;
        QStringList names;
        for (const Filter &filter : filters_)
            names.append(filter.nameFilter());
        setNameFilters(names);
        if (acceptMode() != AcceptSave)
            return;
        setDefaultSuffix(filters_.constFirst().suffix());
        connect(this, &QFileDialog::filterSelected, this, [this](const QString &shown) {
            for (const Filter &filter : filters_) {
                if (filter.nameFilter() == shown)
                    setDefaultSuffix(filter.suffix());
            }
        });
    }

    void addReadOnlyBox() {
        readOnlyBox_ = new QCheckBox(texts::OpenReadOnly.toString(), this);
        readOnlyBox_->setChecked(flags_ & ui::file_dialog_flag::ReadOnly);
        // Rows of the grid are where the dialog lays out its own fields.
        if (auto *grid = qobject_cast<QGridLayout *>(layout()))
            grid->addWidget(readOnlyBox_, grid->rowCount(), 0, 1, -1);
    }

    /// Tells the user why not, or asks, as the flags want it.
    bool mayChoose(const QString &path) {
        using namespace ui::file_dialog_flag;
        const bool exists = runtime::fileKind(path) != runtime::FileKind::Missing;
        const QString folder = path.left(path.lastIndexOf(u'/') + 1);
        if (flags_ & FileMustExist && !exists) {
            ui::showMessage(texts::FileNotFound.toString().arg(path),
                            ui::message_style::Exclamation, windowTitle());
            return false;
        }
        if (flags_ & PathMustExist && runtime::fileKind(folder) != runtime::FileKind::Folder) {
            ui::showMessage(texts::FolderNotFound.toString().arg(path),
                            ui::message_style::Exclamation, windowTitle());
            return false;
        }
        if (acceptMode() == AcceptSave && flags_ & OverwritePrompt && exists)
            return ui::showMessage(texts::ConfirmOverwrite.toString().arg(path),
                                   ui::message_style::YesNo | ui::message_style::Exclamation |
                                       ui::message_style::DefaultButton2,
                                   windowTitle()) == ui::message_answer::Yes;
        return true;
    }

    int flags_;
    QList<Filter> filters_;
    QCheckBox *readOnlyBox_ = nullptr;
    QComboBox *otherNames_ = nullptr;
    QLabel *otherNamesLabel_ = nullptr;
};

} // namespace

ui::FileDialogResult DesktopDialogs::showOpen(const ui::FileDialogRequest &request) {
    return FileDialog(request, QFileDialog::AcceptOpen).run();
}

ui::FileDialogResult DesktopDialogs::showSave(const ui::FileDialogRequest &request) {
    return FileDialog(request, QFileDialog::AcceptSave).run();
}

} // namespace quillon::controls
