#include "app/main_window/help_places.h"

#include <QWidget>

#include <algorithm>

namespace quillon::app {

namespace {

struct Place {
    /// The object name of a part of the window, or the class of a dialog.
    QLatin1String part;
    QLatin1String place;
};

constexpr Place Places[] = {
    {QLatin1String("tvw"), QLatin1String("tree")},
    {QLatin1String("txtEdit"), QLatin1String("pane")},
    {QLatin1String("findField"), QLatin1String("pane#find")},
    {QLatin1String("cboPath"), QLatin1String("search#xpath")},
    {QLatin1String("ie"), QLatin1String("preview")},
    {QLatin1String("resultPanel"), QLatin1String("search#results")},
    {QLatin1String("candidatePanel"), QLatin1String("completion#panel")},
    {QLatin1String("firstPage"), QLatin1String("start")},
    {QLatin1String("commandBox"), QLatin1String("commands")},
    {QLatin1String("momentDialog"), QLatin1String("completion#values")},
    {QLatin1String("BindDialog"), QLatin1String("schema#bind")},
    {QLatin1String("OptionsDialog"), QLatin1String("settings")},
    {QLatin1String("PrintPreview"), QLatin1String("preview#print")},
    {QLatin1String("EncodingDialog"), QLatin1String("encoding#change")},
    {QLatin1String("FormatDialog"), QLatin1String("tree#format")},
    {QLatin1String("ReplaceDialog"), QLatin1String("search#replace")},
    {QLatin1String("RulesDialog"), QLatin1String("schema#rules")},
    {QLatin1String("SchemaDialog"), QLatin1String("schema#find")},
    {QLatin1String("SortDialog"), QLatin1String("tree#sort")},
    {QLatin1String("ValidationList"), QLatin1String("schema#validate")},
    {QLatin1String("QFileDialog"), QLatin1String("files")},
    {QLatin1String("QFontDialog"), QLatin1String("settings#font")},
    {QLatin1String("QPrintDialog"), QLatin1String("preview#print")},
};

QLatin1String classOf(const QWidget &widget) {
    const QLatin1String whole(widget.metaObject()->className());
    const qsizetype colon = whole.lastIndexOf(QLatin1Char(':'));
    return whole.mid(colon + 1);
}

} // namespace

QString helpPlace(const QWidget *widget) {
    for (const QWidget *at = widget; at; at = at->isWindow() ? nullptr : at->parentWidget()) {
        for (const Place &place : Places) {
            if (at->objectName() == place.part || classOf(*at) == place.part)
                return place.place;
        }
    }
    return {};
}

} // namespace quillon::app
