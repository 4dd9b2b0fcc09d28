#pragma once

#include <QWidget>

class QLabel;

namespace quillon::app {

/// The picture that is shown while the program starts. A double click closes it at once.
class frmSplash : public QWidget {
    Q_OBJECT

public:
    frmSplash();

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QLabel *lblVersion;
};

} // namespace quillon::app
