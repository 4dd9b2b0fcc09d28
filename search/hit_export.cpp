#include "search/hit_export.h"

#include "platform/runtime/error.h"
#include "platform/runtime/file_names.h"
#include "platform/ui/dialogs.h"
#include "platform/xml/io/atomic_file.h"
#include "resources/hit_texts.h"

#include <QMimeData>
#include <QStringList>

namespace quillon::search {

namespace texts = resources::hit_texts;

namespace {

constexpr char ByteOrderMark[] = "\xef\xbb\xbf";

QString lineOf(const HitRow &row, bool withChange) {
    QStringList cells{row.kind, row.path, row.text};
    if (withChange)
        cells << row.after << row.obstacle;
    // Texts of rows are in one line; a path may hold anything that a name or a target may.
    for (QString &cell : cells)
        cell.replace(u'\t', u' ');
    return cells.join(u'\t');
}

QString namesOfColumns(const HitList &hits) {
    QStringList names{texts::KindColumn.toString(), texts::PathColumn.toString(),
                      hits.nameOfTexts()};
    if (hits.hasChanges())
        names << texts::AfterColumn.toString() << texts::ObstacleColumn.toString();
    return names.join(u'\t');
}

} // namespace

HitExport::HitExport(HitList &hits, ui::Clipboard &clipboard, ui::LongWork &longWork)
    : hits_(hits), clipboard_(clipboard), longWork_(longWork) {}

qsizetype HitExport::countOf(const std::vector<int> &rows) const {
    return rows.empty() ? hits_.rowCount() : qsizetype(rows.size());
}

QString HitExport::lines(const std::vector<int> &rows, QStringView lineEnd) const {
    constexpr qsizetype Stride = 4096;
    // Places of rows that are named must not change.
    if (rows.empty())
        hits_.sweepAll();
    const quint32 begun = hits_.revision();
    QString all;
    longWork_.run(texts::CollectingRows.toString(), ui::LongWork::Stop::Offered,
                  [&](const runtime::Progress &progress) {
                      const qsizetype count = countOf(rows);
                      for (qsizetype i = 0; i < count; ++i) {
                          const bool asks = i % Stride == 0 && progress;
                          if (asks &&
                              (!progress(double(i) / double(count)) || hits_.revision() != begun))
                              runtime::raise(runtime::error_number::Cancelled);
                          const int row = rows.empty() ? int(i) : rows[std::size_t(i)];
                          all += lineOf(hits_.row(row), hits_.hasChanges());
                          all += lineEnd;
                      }
                  });
    return all;
}

void HitExport::copy(const std::vector<int> &rows) {
    auto data = std::make_unique<QMimeData>();
    data->setText(lines(rows, u"\n"));
    clipboard_.setMimeData(std::move(data));
    Q_EMIT statusText(texts::RowsCopied.toString().arg(countOf(rows)));
}

void HitExport::save(const std::vector<int> &rows) {
    ui::FileDialogRequest request;
    request.title = texts::SaveRowsTitle.toString();
    request.filter = texts::SaveRowsFilter.toString();
    request.flags = ui::file_dialog_flag::OverwritePrompt | ui::file_dialog_flag::PathMustExist;
    const QString path = ui::dialogs().showSave(request).path;
    if (path.isEmpty())
        return;
    const QByteArray text =
        ByteOrderMark +
        (namesOfColumns(hits_) + QStringLiteral("\r\n") + lines(rows, u"\r\n")).toUtf8();
    xml::writeFileAtomically(path, std::string_view(text.constData(), std::size_t(text.size())));
    Q_EMIT statusText(texts::RowsSaved.toString().arg(countOf(rows)).arg(runtime::shownPath(path)));
}

} // namespace quillon::search
