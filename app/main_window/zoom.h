#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <vector>

namespace quillon::app {

/// How large tree, pane and preview are shown, in percent: changed step by step by commands, and by
/// the wheel with Ctrl over them.
class Zoom : public QObject {
    Q_OBJECT

public:
    /// `percent` is where the setting is kept.
    Zoom(qint16 &percent, const std::vector<QWidget *> &zoomed);

    /// In bounds, whatever the setting is.
    int percent() const;

    void mnuZoomIn_Click() { step(+1); }
    void mnuZoomOut_Click() { step(-1); }
    void mnuZoomReset_Click();

Q_SIGNALS:
    /// It is another one now.
    void changed(int percent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void step(int direction);
    void set(int percent);
    bool isZoomed(const QObject *object) const;

    qint16 &percent_;
    std::vector<QPointer<QWidget>> zoomed_;
    /// How far the wheel has been turned since the last step.
    int turned_ = 0;
};

} // namespace quillon::app
