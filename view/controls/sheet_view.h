#pragma once

#include <QScrollArea>

#include <functional>

class QLabel;

namespace quillon::controls {

/// One sheet of paper of several, larger or smaller than the place it is shown in. With the
/// keyboard it is scrolled, and at its edges the pages are turned.
class SheetView : public QScrollArea {
public:
    explicit SheetView(QWidget *parent = nullptr);

    /// Shows a blank sheet of a size, in pixels, until its picture comes.
    void showBlank(const QSize &size);
    /// Shows the picture of a sheet in the size of the blank one.
    void showPicture(const QImage &sheet);
    /// Shows a text where there is no sheet.
    void showText(const QString &text);
    /// The room for a sheet that is to be seen as a whole.
    QSize room() const;

    /// Asked for other pages: so many on, or the first (false) or last one (true).
    std::function<void(int step)> turn = [](int) {};
    std::function<void(bool last)> turnToEnd = [](bool) {};
    /// Asked for another size, 1 for a larger one.
    std::function<void(int step)> zoom = [](int) {};

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    QLabel *sheet_;
};

} // namespace quillon::controls
