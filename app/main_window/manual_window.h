#pragma once

#include "help/manual.h"

#include <QTextBrowser>
#include <QTimer>
#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QStackedWidget;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace quillon::app {

/// Shows pages of the manual, in the colours of the palette. Pictures are made to fit.
class ManualBrowser : public QTextBrowser {
public:
    explicit ManualBrowser(const help::Manual &manual);

    void showPlace(const QString &place);
    /// What is shown, without the section.
    QString page() const;
    /// Marks a text wherever the page has it, and goes to the first place behind the beginning of
    /// what is shown.
    void mark(const QString &text);

protected:
    QVariant loadResource(int type, const QUrl &name) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QString styleSheetOfPages() const;
    int pictureWidth() const;
    /// Makes the page anew and keeps its place.
    void renew();

    const help::Manual &manual_;
    QTimer renewing_;
    int shownPictureWidth_ = 0;
};

/// The window of the manual: contents, search, pages with a way back and forth. It keeps no program
/// running.
class ManualWindow : public QWidget {
    Q_OBJECT

public:
    explicit ManualWindow(const help::Manual &manual);

    /// Shows a place of the manual, e.g. "tree#move", and comes to the front.
    void open(const QString &place);
    /// Opens above a modal dialog, which lets nothing be used but what belongs to it. The window
    /// outlives the dialog.
    void openAbove(QWidget *modal, const QString &place);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QToolButton *addButton(const char *name, QStringView icon, QStringView text,
                           QStringView toolTip);
    void layOut();
    void fillContents();
    void connectParts();
    /// Has the contents follow the page that is shown.
    void followPage();
    void showContentsItem(QTreeWidgetItem *item);
    void find(const QString &text);
    void showFinding(int row);

    const help::Manual &manual_;
    QToolButton *back_;
    QToolButton *forward_;
    QToolButton *zoomOut_;
    QToolButton *zoomIn_;
    QLineEdit *field_;
    QTreeWidget *contents_;
    QListWidget *findings_;
    QLabel *count_;
    QStackedWidget *left_;
    ManualBrowser *browser_;
};

} // namespace quillon::app
