#pragma once

#include "platform/ui/clipboard.h"
#include "platform/ui/long_work.h"
#include "search/hit_list.h"

#include <QObject>

#include <vector>

namespace quillon::search {

/// Takes rows of the list of hits out of the program: one row a line, its columns divided by tabs.
class HitExport : public QObject {
    Q_OBJECT

public:
    HitExport(HitList &hits, ui::Clipboard &clipboard, ui::LongWork &longWork);

    /// Puts rows on the clipboard; all of them when none are named.
    void copy(const std::vector<int> &rows);
    /// Asks for a file and writes the rows into it, below the names of the columns: UTF-8 with a
    /// byte order mark and CR LF, which every spreadsheet program takes. Raises what writing a file
    /// raises.
    void save(const std::vector<int> &rows);

Q_SIGNALS:
    void statusText(const QString &text);

private:
    QString lines(const std::vector<int> &rows, QStringView lineEnd) const;
    qsizetype countOf(const std::vector<int> &rows) const;

    HitList &hits_;
    ui::Clipboard &clipboard_;
    ui::LongWork &longWork_;
};

} // namespace quillon::search
