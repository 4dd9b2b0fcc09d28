#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <gtest/gtest.h>
#include <map>
#include <set>

namespace quillon::resources::test {

namespace {

/// A text with the note that tells it from others.
using Key = std::pair<QString, QString>;

const QDir Source(QStringLiteral(SOURCE_DIR));

QString contentOf(const QString &path) {
    QFile file(Source.filePath(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// The files of some folders that hold C++.
QStringList sourcesIn(const QStringList &folders) {
    QStringList paths;
    for (const QString &folder : folders) {
        QDirIterator it(Source.filePath(folder), {"*.h", "*.cpp"}, QDir::Files,
                        QDirIterator::Subdirectories);
        while (it.hasNext())
            paths.append(Source.relativeFilePath(it.next()));
    }
    paths.sort();
    return paths;
}

QStringList folders() {
    QStringList names = Source.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const char *other : {"build", "tests", "bench", "fuzz", "qa", "resources"})
        names.removeAll(other);
    return names;
}

bool hasJapanese(const QString &text) {
    static const QRegularExpression japanese(
        QString::fromUtf8("[\\p{Hiragana}\\p{Katakana}\\p{Han}、。「」（）：？！ー　]"));
    return text.contains(japanese);
}

QString withoutComments(QString code) {
    static const QRegularExpression comment("^\\s*//.*$", QRegularExpression::MultilineOption);
    return code.remove(comment);
}

/// What a sequence of literals stands for.
QString literalText(const QString &literals) {
    static const QRegularExpression piece("\"((?:[^\"\\\\\\n]|\\\\.)*)\"");
    QString text;
    for (auto it = piece.globalMatch(literals); it.hasNext();)
        text += it.next().captured(1);
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isEscaped = text[i] == '\\' && ++i < text.size();
        plain += isEscaped && text[i] == 'n'   ? QChar('\n')
                 : isEscaped && text[i] == 't' ? QChar('\t')
                                               : text[i];
    }
    return plain;
}

/// Every text of the program by the file it stands in.
std::map<Key, QString> writtenTexts() {
    static const QRegularExpression literals(
        "(u\"(?:[^\"\\\\\\n]|\\\\.)*\"(?:\\s*u?\"(?:[^\"\\\\\\n]|\\\\.)*\")*)"
        "(?:,\\s*\"((?:[^\"\\\\\\n])*)\"\\s*[})])?");
    std::map<Key, QString> texts;
    for (const QString &path : sourcesIn({"resources"})) {
        if (path == "resources/language.cpp")
            continue;
        for (auto it = literals.globalMatch(withoutComments(contentOf(path))); it.hasNext();) {
            const auto match = it.next();
            texts[{literalText(match.captured(1)), match.captured(2)}] = path;
        }
    }
    return texts;
}

struct Catalogue {
    QString name;
    std::vector<std::pair<Key, QString>> texts;
};

std::vector<Catalogue> catalogues() {
    std::vector<Catalogue> all;
    const QDir folder(Source.filePath("resources/translations"));
    for (const QString &name : folder.entryList({"*.ts"})) {
        Catalogue &one = all.emplace_back();
        one.name = name;
        QXmlStreamReader xml(contentOf("resources/translations/" + name));
        Key key;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (xml.name() == u"source")
                key = {xml.readElementText(), QString()};
            else if (xml.name() == u"comment")
                key.second = xml.readElementText();
            else if (xml.name() == u"translation")
                one.texts.emplace_back(key, xml.readElementText());
        }
        EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    }
    EXPECT_FALSE(all.empty());
    return all;
}

/// The line of a catalogue for a text, to be completed.
std::string messageLine(const Key &key) {
    const QString comment =
        key.second.isEmpty() ? QString() : "<comment>" + key.second.toHtmlEscaped() + "</comment>";
    return ("<message><source>" +
            key.first.toHtmlEscaped()
                .replace("\n", "&#10;")
                .replace("\t", "&#9;")
                .replace("&quot;", "\"") +
            "</source>" + comment + "<translation>?</translation></message>")
        .toStdString();
}

/// What must be the same in every language, in an order of its own: placeholders, the key behind a
/// tab, patterns of files, and how a caption ends.
QStringList fixedParts(const QString &text) {
    static const QRegularExpression placeholder("%L?\\d|%n");
    QStringList parts;
    for (auto it = placeholder.globalMatch(text); it.hasNext();)
        parts.append(it.next().captured());
    parts.sort();
    parts.append(text.section('\t', 1));
    if (text.contains("|*")) {
        const QStringList filters = text.split('|');
        for (qsizetype i = 1; i < filters.size(); i += 2)
            parts.append(filters[i]);
    }
    if (text.endsWith("...") || text.endsWith('\n'))
        parts.append(text.right(1));
    return parts;
}

TEST(Catalogues, HaveEveryTextOnceAndNoOther) {
    const std::map<Key, QString> written = writtenTexts();
    ASSERT_GT(written.size(), 1000u);
    for (const Catalogue &catalogue : catalogues()) {
        std::set<Key> translated;
        for (const auto &[key, text] : catalogue.texts) {
            EXPECT_TRUE(translated.insert(key).second)
                << catalogue.name.toStdString() << " has twice: " << messageLine(key);
            EXPECT_TRUE(written.contains(key))
                << catalogue.name.toStdString() << " has what nothing says: " << messageLine(key);
        }
        for (const auto &[key, path] : written) {
            EXPECT_TRUE(!hasJapanese(key.first) || translated.contains(key))
                << catalogue.name.toStdString() << " lacks this of " << path.toStdString() << ":\n"
                << messageLine(key);
        }
    }
}

TEST(Catalogues, AreTranslated) {
    for (const Catalogue &catalogue : catalogues()) {
        for (const auto &[key, text] : catalogue.texts) {
            SCOPED_TRACE(catalogue.name.toStdString() + ": " + messageLine(key));
            EXPECT_FALSE(text.isEmpty() || text == key.first || hasJapanese(text))
                << text.toStdString();
            EXPECT_EQ(fixedParts(text), fixedParts(key.first)) << text.toStdString();
            EXPECT_EQ(key.first.contains('&'), text.contains('&'))
                << "an access key in one of them: " << text.toStdString();
        }
    }
}

/// Only what is of type Text is looked up.
TEST(Texts, StandInResourcesAsText) {
    static const QRegularExpression view("QStringView \\w+(?:\\[\\])? =\\s*(u\"[^;]*);");
    for (const QString &path : sourcesIn({"resources"})) {
        for (auto it = view.globalMatch(contentOf(path)); it.hasNext();) {
            const QString literals = it.next().captured(1);
            EXPECT_FALSE(hasJapanese(literals))
                << path.toStdString() << ": " << literals.toStdString();
        }
    }
    // Names that users give things, what encodings are told apart by, and the height of a line.
    const QStringList data{"platform/xml/query/node_path.cpp", "platform/xml/io/encoding.cpp",
                           "view/controls/tree_view_layout.cpp"};
    static const QRegularExpression literal("\"(?:[^\"\\\\\\n]|\\\\.)*\"");
    for (const QString &path : sourcesIn(folders())) {
        if (data.contains(path))
            continue;
        for (auto it = literal.globalMatch(withoutComments(contentOf(path))); it.hasNext();) {
            const QString text = it.next().captured();
            EXPECT_FALSE(hasJapanese(text)) << path.toStdString() << ": " << text.toStdString();
        }
    }
}

/// "hit_texts::Sorting" of everything that files name, whatever they call the namespace.
std::set<QString> namesInUse() {
    static const QRegularExpression alias("namespace (\\w+) =\\s+(?:\\w+::)*(\\w+);");
    static const QRegularExpression qualified("\\b(\\w+)(?=::(\\w+))");
    std::map<QString, QString> ofHeaders;
    std::map<QString, QString> contents;
    for (const QString &path : sourcesIn(folders())) {
        contents[path] = contentOf(path);
        for (auto it = alias.globalMatch(contents[path]); path.endsWith(".h") && it.hasNext();) {
            const auto match = it.next();
            ofHeaders[match.captured(1)] = match.captured(2);
        }
    }
    std::set<QString> names;
    for (const auto &[path, content] : contents) {
        std::map<QString, QString> aliases = ofHeaders;
        for (auto it = alias.globalMatch(content); it.hasNext();) {
            const auto match = it.next();
            aliases[match.captured(1)] = match.captured(2);
        }
        for (auto it = qualified.globalMatch(content); it.hasNext();) {
            const auto match = it.next();
            const auto found = aliases.find(match.captured(1));
            names.insert(match.captured(1) + "::" + match.captured(2));
            if (found != aliases.end())
                names.insert(found->second + "::" + match.captured(2));
        }
    }
    return names;
}

TEST(Texts, AreAllUsed) {
    static const QRegularExpression space("namespace quillon::resources::(\\w+) \\{");
    static const QRegularExpression constant("inline constexpr Text (\\w+)");
    const std::set<QString> used = namesInUse();
    for (const QString &path : sourcesIn({"resources"})) {
        const QString header = contentOf(path);
        const QString name = space.match(header).captured(1);
        for (auto it = constant.globalMatch(header); it.hasNext();) {
            const QString text = it.next().captured(1);
            const bool isUsedHere = header.count(QRegularExpression("\\b" + text + "\\b")) > 1;
            EXPECT_TRUE(used.contains(name + "::" + text) || isUsedHere)
                << path.toStdString() << ": " << text.toStdString();
        }
    }
}

} // namespace

} // namespace quillon::resources::test
