#include "help/manual.h"

#include "resources/manual_texts.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>

namespace quillon::help {

namespace texts = resources::manual_texts;

namespace {

/// So many characters of a finding's text stand ahead of what was found, and so many in all.
constexpr qsizetype ExcerptLead = 20;
constexpr qsizetype ExcerptLength = 90;

struct PageRow {
    QStringView name;
    resources::Text title;
};

constexpr PageRow Pages[] = {
    {u"start", texts::StartTitle},
    {u"files", texts::FilesTitle},
    {u"tree", texts::TreeTitle},
    {u"pane", texts::PaneTitle},
    {u"search", texts::SearchTitle},
    {u"schema", texts::SchemaTitle},
    {u"completion", texts::CompletionTitle},
    {u"preview", texts::PreviewTitle},
    {u"broken", texts::BrokenTitle},
    {u"encoding", texts::EncodingTitle},
    {u"recovery", texts::RecoveryTitle},
    {u"settings", texts::SettingsTitle},
    {u"automation", texts::AutomationTitle},
    {u"keys", texts::KeysTitle},
    {u"commands", texts::CommandsTitle},
};

QString readText(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Replaces every match of a pattern by what a function makes of it.
template <typename Make>
QString replaced(const QString &text, const QRegularExpression &pattern, const Make &make) {
    QString result;
    qsizetype done = 0;
    for (auto found = pattern.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        result += QStringView(text).mid(done, match.capturedStart() - done);
        result += make(match);
        done = match.capturedEnd();
    }
    result += QStringView(text).mid(done);
    return result;
}

QString plainText(QString html) {
    static const QRegularExpression tag(QStringLiteral("<[^>]*>"));
    html.replace(tag, QStringLiteral(" "));
    for (const auto &[entity, character] :
         {std::pair("&lt;", "<"), std::pair("&gt;", ">"), std::pair("&quot;", "\""),
          std::pair("&nbsp;", " "), std::pair("&amp;", "&")})
        html.replace(QLatin1String(entity), QLatin1String(character));
    return html.simplified();
}

QString keyed(const QString &key) {
    return QStringLiteral("<kbd>%1</kbd>").arg(key.toHtmlEscaped());
}

QString cell(const QString &html) {
    return QStringLiteral("<td>%1</td>").arg(html);
}

QString table(std::initializer_list<resources::Text> headings, const QStringList &rows) {
    QString head;
    for (const resources::Text &heading : headings)
        head += QStringLiteral("<th>%1</th>").arg(heading.toString());
    return QStringLiteral("<table width=\"100%\"><tr>%1</tr>%2</table>")
        .arg(head, rows.join(u'\n'));
}

std::vector<ManualSection> sectionsOf(const ManualPage &page, const QString &source) {
    static const QRegularExpression heading(QStringLiteral("<h2 id=\"([^\"]+)\">(.*?)</h2>"),
                                            QRegularExpression::DotMatchesEverythingOption);
    std::vector<ManualSection> sections{{page.name, page.title, {}}};
    qsizetype done = 0;
    const auto endAt = [&](qsizetype end) {
        sections.back().text = plainText(source.mid(done, end - done));
    };
    for (auto found = heading.globalMatch(source); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        endAt(match.capturedStart());
        done = match.capturedEnd();
        sections.push_back(
            {page.name + u'#' + match.captured(1), plainText(match.captured(2)), {}});
    }
    endAt(source.size());
    return sections;
}

} // namespace

Manual::Manual(const QString &folder, const Commands &commands)
    : commands_(commands), folding_(true, true) {
    for (const PageRow &row : Pages)
        addPage(row.name, row.title, folder);
}

void Manual::addPage(QStringView name, QStringView title, const QString &folder) {
    static const QRegularExpression heading(QStringLiteral("<h2 id=\"([^\"]+)\">"));
    ManualPage page{name.toString(), title.toString(), {}, {}};
    QString source = filledIn(readText(QStringLiteral("%1/%2.html").arg(folder, name)));
    page.sections = sectionsOf(page, source);
    // Rich text knows the older way to name a place alone.
    source.replace(heading, QStringLiteral("<h2><a name=\"\\1\"></a>"));
    page.html =
        QStringLiteral("<html><head><title>%1</title></head><body><h1>%1</h1>%2</body></html>")
            .arg(page.title.toHtmlEscaped(), source);
    pages_.push_back(std::move(page));
}

QString Manual::filledIn(const QString &source) {
    static const QRegularExpression list(QStringLiteral("\\{(commands|keys)\\}"));
    static const QRegularExpression command(QStringLiteral("\\{(key )?([A-Za-z]\\w+)\\}"));
    static const QRegularExpression program(QStringLiteral("\\{program ([\\w.]+)\\}"));
    const QString withPrograms =
        replaced(source, program, [](const QRegularExpressionMatch &match) {
            return QStringLiteral("<pre>%1</pre>")
                .arg(readText(QStringLiteral(":/manual/") + match.captured(1)).toHtmlEscaped());
        });
    const QString withLists =
        replaced(withPrograms, list, [this](const QRegularExpressionMatch &match) {
            return match.captured(1) == u"keys" ? keyList() : commandList();
        });
    return replaced(withLists, command, [this](const QRegularExpressionMatch &match) {
        return match.captured(1).isEmpty() ? wayTo(match.captured(2)) : keyOf(match.captured(2));
    });
}

QString Manual::wayTo(const QString &name) {
    const auto command = std::ranges::find(commands_, name, &Command::name);
    if (command == commands_.end()) {
        unknownCommands_.append(name);
        return name;
    }
    const QString way = command->menu.isEmpty()
                            ? command->title
                            : command->menu + texts::MenuStep.toString() + command->title;
    return QStringLiteral("<b>%1</b>").arg(way.toHtmlEscaped());
}

QString Manual::keyOf(const QString &name) {
    const auto command = std::ranges::find(commands_, name, &Command::name);
    if (command == commands_.end() || command->key.isEmpty()) {
        unknownCommands_.append(QStringLiteral("key ") + name);
        return name;
    }
    return keyed(command->key);
}

QString Manual::commandList() const {
    const QString step = texts::MenuStep.toString();
    QString lists;
    QString menu;
    QStringList rows;
    const auto endMenu = [&] {
        if (rows.isEmpty())
            return;
        lists += QStringLiteral("<h2 id=\"%1\">%2</h2>")
                     .arg(QStringLiteral("menu%1").arg(lists.count(QLatin1String("<h2"))),
                          (menu.isEmpty() ? texts::KeysAlone.toString() : menu).toHtmlEscaped());
        lists += table({texts::CommandHeading, texts::KeyHeading}, rows);
        rows.clear();
    };
    // What stands in no menu comes behind everything else.
    for (const bool isInMenu : {true, false}) {
        for (const Command &command : commands_) {
            const QString top = command.menu.section(step, 0, 0);
            if (command.menu.isEmpty() == isInMenu)
                continue;
            if (top != menu) {
                endMenu();
                menu = top;
            }
            QString title = command.title;
            if (command.menu != top)
                title.prepend(command.menu.mid(top.size() + step.size()) + step);
            rows.append(QStringLiteral("<tr>%1%2</tr>")
                            .arg(cell(title.toHtmlEscaped()),
                                 cell(command.key.isEmpty() ? QString() : keyed(command.key))));
        }
        endMenu();
        menu.clear();
    }
    return lists;
}

QString Manual::keyList() const {
    QStringList ofWindow;
    QStringList ofTree;
    for (const Command &command : commands_) {
        if (command.key.isEmpty())
            continue;
        const QString row = QStringLiteral("<tr>%1%2%3</tr>")
                                .arg(cell(keyed(command.key)), cell(command.title.toHtmlEscaped()),
                                     cell(command.menu.toHtmlEscaped()));
        (command.isKeyOfTree ? ofTree : ofWindow).append(row);
    }
    const auto headings = {texts::KeyHeading, texts::CommandHeading, texts::MenuHeading};
    return QStringLiteral("<h2 id=\"window\">%1</h2>%2<h2 id=\"tree\">%3</h2>%4")
        .arg(texts::KeysOfWindow.toString(), table(headings, ofWindow),
             texts::KeysOfTree.toString(), table(headings, ofTree));
}

const ManualPage *Manual::page(QStringView place) const {
    const QStringView name = place.left(place.indexOf(u'#'));
    const auto found =
        std::ranges::find_if(pages_, [&](const ManualPage &page) { return page.name == name; });
    return found == pages_.end() ? nullptr : &*found;
}

bool Manual::hasPlace(QStringView place) const {
    const ManualPage *const found = page(place);
    return found && std::ranges::any_of(found->sections, [&](const ManualSection &section) {
               return section.place == place;
           });
}

QStringList Manual::missing() const {
    static const QRegularExpression link(QStringLiteral("<a href=\"([^\"]*)\""));
    static const QRegularExpression picture(QStringLiteral("<img src=\"pictures/([^\"]*)\""));
    QStringList missing = unknownCommands_;
    for (const ManualPage &page : pages_) {
        if (page.sections.size() < 2 && page.sections.front().text.isEmpty())
            missing.append(page.name);
        for (auto found = link.globalMatch(page.html); found.hasNext();) {
            QString place = found.next().captured(1);
            if (place.startsWith(u'#'))
                place.prepend(page.name);
            if (!hasPlace(place))
                missing.append(page.name + QStringLiteral(" -> ") + place);
        }
        for (auto found = picture.globalMatch(page.html); found.hasNext();) {
            const QString file = found.next().captured(1);
            if (!QFile::exists(picturesFolder() + u'/' + file))
                missing.append(page.name + QStringLiteral(" -> ") + file);
        }
    }
    return missing;
}

std::vector<ManualFinding> Manual::find(const QString &text) const {
    std::vector<ManualFinding> findings;
    const QString wanted = folding_.folded(text.simplified());
    if (wanted.isEmpty())
        return findings;
    search::FoldedText folded;
    for (const ManualPage &page : pages_) {
        for (const ManualSection &section : page.sections) {
            folding_.fold(section.text, folded);
            const qsizetype at = folded.text().indexOf(wanted);
            if (at < 0 && !folding_.folded(section.title).contains(wanted))
                continue;
            const qsizetype start =
                at < 0 ? 0 : std::max<qsizetype>(0, folded.original(at) - ExcerptLead);
            QString excerpt = section.text.mid(start, ExcerptLength);
            if (start > 0)
                excerpt.prepend(u'…');
            if (start + ExcerptLength < section.text.size())
                excerpt.append(u'…');
            const QString title = &section == &page.sections.front()
                                      ? page.title
                                      : page.title + texts::MenuStep.toString() + section.title;
            findings.push_back({section.place, title, excerpt});
        }
    }
    return findings;
}

} // namespace quillon::help
