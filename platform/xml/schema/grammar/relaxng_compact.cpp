#include "platform/xml/schema/grammar/relaxng_compact.h"

#include "platform/xml/schema/grammar/relaxng_compact_parser.h"

namespace quillon::grammar {

namespace {

/// Writes elements on their lines.
class Writer {
public:
    QByteArray written(const CompactElement &root) {
        write(root);
        return text_.toUtf8();
    }

private:
    void write(const CompactElement &element) {
        for (; line_ < element.line; ++line_)
            text_ += u'\n';
        text_ += u'<' + element.name;
        for (const auto &[name, value] : element.attributes)
            text_ += u' ' + name + QLatin1String("=\"") + escaped(value) + u'"';
        text_ += u'>' + escaped(element.text);
        for (const CompactElement &child : element.children)
            write(child);
        text_ += QLatin1String("</") + element.name + u'>';
        if (!element.documentationBehind.isEmpty())
            write({CompactDocumentation, element.line, {}, element.documentationBehind});
    }
    static QString escaped(const QString &text) {
        return text.toHtmlEscaped().replace(u'\n', QLatin1String("&#10;"));
    }

    QString text_;
    int line_ = 1;
};

} // namespace

bool mayBeCompactRelaxNg(QByteArrayView text) {
    if (text.startsWith("\xEF\xBB\xBF"))
        text = text.sliced(3);
    text = text.trimmed();
    return !text.isEmpty() && text.front() != '<';
}

QByteArray relaxNgFromCompact(const QByteArray &text, const QString &fileName) {
    return Writer().written(CompactParser(QString::fromUtf8(text), fileName).schema());
}

} // namespace quillon::grammar
