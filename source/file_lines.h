#pragma once

#include "platform/xml/dom/markup_places.h"
#include "tree/selection.h"

#include <QTimer>

#include <optional>

namespace quillon::source {

/// Finds out which line of the file the text of the pane begins on, as the document would be saved
/// now. Counting is done when there is nothing else to do, a piece at a time.
class FileLines : public QObject {
    Q_OBJECT

public:
    FileLines(const tree::Selection &selection, const items::Tree &tree,
              const tree::PaneContent &pane);

    /// While it is off, lines are counted from the start of the pane's text.
    void setOn(bool on);
    /// The pane shows another node, or the document has changed elsewhere than in its text.
    void placeChanged();

Q_SIGNALS:
    /// The number of the first line; none while it is not known, and where lines of the text are
    /// not lines of the file.
    void firstLineChanged(std::optional<qsizetype> number);

private:
    void begin();
    void goOn();

    const tree::Selection &selection_;
    const items::Tree &tree_;
    const tree::PaneContent &pane_;
    bool on_ = false;
    std::optional<xml::MarkupAhead> ahead_;
    /// How many lines further on than the node the text begins.
    qsizetype linesInNode_ = 0;
    QTimer soon_;
};

} // namespace quillon::source
