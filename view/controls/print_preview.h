#pragma once

#include <QDialog>
#include <QImage>
#include <QPageLayout>
#include <QTimer>

#include <functional>

class QComboBox;
class QLabel;
class QLayout;
class QPushButton;
class QSpinBox;
class QToolButton;

namespace quillon::controls {

class SheetView;

/// Pages as a print preview shows them, each when it is looked at.
class PreviewPages : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Makes pages for a paper; laidOut() or failed() tells when they are there, which may be
    /// before this returns.
    virtual void layOut(const QPageLayout &paper) = 0;
    /// Paints a page, counted from 0; painted() tells when it is there, which may be before this
    /// returns. A page that was asked for before need not come any more.
    virtual void paint(int page, double dotsPerInch) = 0;

Q_SIGNALS:
    void laidOut(int count);
    /// The whole sheet, with its margins.
    void painted(int page, const QImage &sheet);
    void failed(const QString &reason);
};

/// Shows what will be printed, sheet by sheet. The result is Accepted when the user wants it
/// printed; paper() then says on what.
class PrintPreview : public QDialog {
    Q_OBJECT

public:
    /// The pages must outlive the dialog.
    PrintPreview(PreviewPages &pages, const QPageLayout &paper, const QString &title,
                 QWidget *parent);

    const QPageLayout &paper() const { return paper_; }
    /// The page that is shown, counted from 0; and of how many.
    int page() const;
    int count() const { return count_; }

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QWidget *pageControls();
    QWidget *zoomControls();
    QWidget *buttons();
    QToolButton *addStep(QLayout &row, QStringView sign, QStringView name,
                         std::function<void()> press);

    void layOut();
    void takeCount(int count);
    void showSheet(int page, const QImage &sheet);
    void tell(const QString &text);
    void goTo(int page);
    void askForSheet();
    void zoom(int step);
    void changePaper();
    /// Of the sheet on the screen, by what is chosen.
    double scale() const;

    PreviewPages &pages_;
    QPageLayout paper_;
    int count_ = 0;
    SheetView *view_;
    QSpinBox *number_;
    QLabel *total_;
    QToolButton *previous_ = nullptr;
    QToolButton *next_ = nullptr;
    QComboBox *zoom_;
    QPushButton *print_ = nullptr;
    /// Until the window has got the size that the user gives it.
    QTimer resizing_;
};

} // namespace quillon::controls
