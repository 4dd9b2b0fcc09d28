#include "bench/check_bench.h"

#include "app/main_window/frm_main.h"
#include "bench/report.h"
#include "platform/ui/dialogs.h"

#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTimer>

#include <libxml/parser.h>
#include <libxml/xmlschemas.h>
#include <sys/resource.h>
#include <unistd.h>

namespace quillon::bench {

namespace {

constexpr char Xsd[] = R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
<xs:element name="orders"><xs:complexType><xs:sequence>
 <xs:element name="order" maxOccurs="unbounded"><xs:complexType><xs:sequence>
  <xs:element name="customer" type="xs:string"/>
  <xs:element name="item" maxOccurs="unbounded"><xs:complexType><xs:sequence>
   <xs:element name="code" type="xs:string"/><xs:element name="qty" type="xs:int"/>
  </xs:sequence><xs:attribute name="n" type="xs:int"/></xs:complexType></xs:element>
 </xs:sequence><xs:attribute name="id" type="xs:int" use="required"/>
 <xs:attribute name="date" type="xs:date"/></xs:complexType></xs:element>
</xs:sequence></xs:complexType></xs:element></xs:schema>)";

constexpr char Xdr[] = R"(<Schema xmlns="urn:schemas-microsoft-com:xml-data"
 xmlns:dt="urn:schemas-microsoft-com:datatypes">
<ElementType name="customer" dt:type="string"/><ElementType name="code" dt:type="string"/>
<ElementType name="qty" dt:type="i4"/>
<ElementType name="item" content="eltOnly" order="seq"><AttributeType name="n" dt:type="i4"/>
 <attribute type="n"/><element type="code"/><element type="qty"/></ElementType>
<ElementType name="order" content="eltOnly" order="seq">
 <AttributeType name="id" dt:type="i4" required="yes"/><AttributeType name="date" dt:type="date"/>
 <attribute type="id"/><attribute type="date"/>
 <element type="customer"/><element type="item" maxOccurs="*"/></ElementType>
<ElementType name="orders" content="eltOnly"><element type="order" maxOccurs="*"/></ElementType>
</Schema>)";

constexpr char Dtd[] = R"(<!ELEMENT orders (order*)><!ELEMENT order (customer, item+)>
<!ATTLIST order id CDATA #REQUIRED date CDATA #IMPLIED><!ELEMENT customer (#PCDATA)>
<!ELEMENT item (code, qty)><!ATTLIST item n CDATA #IMPLIED>
<!ELEMENT code (#PCDATA)><!ELEMENT qty (#PCDATA)>)";

/// From this size on validations have a limit.
constexpr qint64 LimitedBytes = 5'000'000;
/// Larger documents are not previewed unasked.
constexpr qint64 PreviewBytes = 200'000;
/// A page that takes longer to appear never will.
constexpr int BrowserMs = 60'000;

/// A user who chooses one file after the other, and whose documents are valid.
class ChoosingUser final : public ui::Dialogs {
public:
    ChoosingUser() : before_(ui::setDialogs(this)) {}
    ~ChoosingUser() override { ui::setDialogs(before_); }

    QString choice;
    /// Whether any message was shown: that of a document that is not valid, for one.
    bool wasTold = false;

    ui::FileDialogResult showOpen(const ui::FileDialogRequest &request) override {
        return {choice, request.flags};
    }
    ui::FileDialogResult showSave(const ui::FileDialogRequest &) override { return {}; }
    QString inputText(const QString &, const ui::InputHelp &) override { return {}; }
    std::optional<ui::FontChoice> chooseFont(const ui::FontChoice &) override { return {}; }
    std::optional<int> chooseOne(const QString &, const QStringList &) override { return {}; }
    std::optional<QString> chooseValue(ui::ValueEditor, const QString &) override { return {}; }
    int showMessage(const QString &text, int, const QString &) override {
        std::fprintf(stderr, "unexpected message: %s\n", qPrintable(text));
        wasTold = true;
        return 0;
    }

private:
    ui::Dialogs *before_;
};

/// Reading, parsing and validating a file with libxml2 and nothing else; whether it is valid.
bool validateWithLibxml(const QByteArray &document, const QByteArray &schema) {
    xmlSchemaParserCtxt *const parser = xmlSchemaNewParserCtxt(schema.constData());
    xmlSchema *const compiled = xmlSchemaParse(parser);
    xmlDoc *const doc = xmlReadFile(document.constData(), nullptr, XML_PARSE_HUGE);
    xmlSchemaValidCtxt *const validator = xmlSchemaNewValidCtxt(compiled);
    const bool valid = doc && xmlSchemaValidateDoc(validator, doc) == 0;
    xmlSchemaFreeValidCtxt(validator);
    xmlFreeDoc(doc);
    xmlSchemaFree(compiled);
    xmlSchemaFreeParserCtxt(parser);
    return valid;
}

/// How much more memory the largest child process so far had than this one has now. A child starts
/// with all of its parent's but what comes from files, of which it fetches what it needs.
double addedMegabytes() {
    rusage largest{};
    ::getrusage(RUSAGE_CHILDREN, &largest);
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return NotMeasured;
    const QList<QByteArray> pages = file.readAll().split(' ');
    const double own =
        (pages.value(1).toDouble() - pages.value(2).toDouble()) * double(::getpagesize());
    return (double(largest.ru_maxrss) * 1024 - own) / 1e6;
}

void measureValidation(Table &table, app::frmMain &form, const QString &path) {
    const QTemporaryDir folder;
    ChoosingUser user;
    const auto ours = [&](const char *name, const char *schema) {
        user.choice = folder.filePath(QLatin1String(name));
        QFile file(user.choice);
        if (!file.open(QIODevice::WriteOnly) || file.write(schema) < 0)
            return NotMeasured;
        file.close();
        return bestOf(3, [&] {
            form.editor().validation.mnuToolVerifyNew_Click();
            return !user.wasTold;
        });
    };
    const double byXsd = ours("orders.xsd", Xsd);
    const double added = addedMegabytes();
    const double alone =
        bestOf(3, [&] { return validateWithLibxml(path.toUtf8(), user.choice.toUtf8()); });
    const double byXdr = ours("orders.xml", Xdr);
    // Small documents take no time, whatever validates them.
    const bool isLimited = QFileInfo(path).size() > LimitedBytes;
    table.row("validate by XSD with libxml2 alone", alone, "ms", 0);
    table.row("validate by XSD", byXsd, "ms", 0);
    table.row("  / libxml2 alone", byXsd / alone, "x", isLimited ? 1.2 : 0);
    table.row("  memory beyond the program's own", added, "MB", 100);
    table.row("validate by XDR", byXdr, "ms", 0);
    table.row("  / XSD with libxml2 alone", byXdr / alone, "x", isLimited ? 3 : 0);
    table.row("validate by DTD", ours("orders.dtd", Dtd), "ms", 0);
}

void measurePreview(Table &table, app::frmMain &form) {
    auto &ie = *form.findChild<browser::Browser *>(QStringLiteral("ie"));
    const auto show = [&] {
        bool shown = false;
        QEventLoop untilShown;
        QObject::connect(&ie, &browser::Browser::NavigateComplete, &untilShown, [&](bool ok) {
            shown = ok;
            untilShown.quit();
        });
        // The browser's processes may die without a word.
        QTimer::singleShot(BrowserMs, &untilShown, &QEventLoop::quit);
        form.editor().preview.mnuToolPreview_Click();
        untilShown.exec();
        return shown;
    };
    // The browser starts with the first page.
    show();
    table.row("transform and show", bestOf(10, show), "ms", 150);
}

} // namespace

const char *const OrderXsd = Xsd;

void measureChecking(Table &table, app::frmMain &form, const QString &path) {
    if (QFileInfo(path).size() <= PreviewBytes)
        measurePreview(table, form);
    measureValidation(table, form, path);
}

} // namespace quillon::bench
