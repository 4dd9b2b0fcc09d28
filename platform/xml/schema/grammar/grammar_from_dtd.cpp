#include "platform/xml/schema/grammar/grammar_from_dtd.h"

#include "platform/runtime/error.h"
#include "platform/xml/io/expat_position.h"
#include "platform/xml/schema/grammar/grammar_builder.h"
#include "platform/xml/schema/schema_error.h"
#include "resources/validation_texts.h"
#include "resources/xml_texts.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <exception>
#include <limits>
#include <map>
#include <memory>

namespace quillon::grammar {

namespace {

namespace expat = xml::expat;
namespace texts = resources::xml_texts;

struct ParserRelease {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using OwnedParser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserRelease>;

/// Stands for the internal subset where files have their path.
const QByteArray Internal = "-";

QString reasonOf(XML_Error code) {
    switch (code) {
    case XML_ERROR_AMPLIFICATION_LIMIT_BREACH:
        return texts::EntityLimit.toString();
    case XML_ERROR_RECURSIVE_ENTITY_REF:
        return texts::EntityLoop.toString();
    case XML_ERROR_INVALID_TOKEN:
        return texts::InvalidToken.toString();
    default:
        return texts::OtherSyntaxError.toString();
    }
}

class DtdReader {
public:
    explicit DtdReader(SchemaFiles &files) : files_(files), builder_(Language::Dtd) {}

    Data read(const QString &path, const QByteArray &internalSubset);

private:
    static DtdReader &self(void *data) { return *static_cast<DtdReader *>(data); }
    static void onElement(void *data, const XML_Char *name, XML_Content *model);
    static void onAttribute(void *data, const XML_Char *element, const XML_Char *name,
                            const XML_Char *type, const XML_Char *value, int required);
    static void onComment(void *data, const XML_Char *text);
    static void onEntity(void *data, const XML_Char *, int, const XML_Char *, int, const XML_Char *,
                         const XML_Char *, const XML_Char *, const XML_Char *);
    static int onExternal(XML_Parser parser, const XML_Char *context, const XML_Char *base,
                          const XML_Char *address, const XML_Char *publicId);

    /// Runs what may raise inside of expat, which knows no exceptions.
    template <typename Function>
    void guarded(Function &&function) {
        try {
            if (!failure_)
                function();
        } catch (...) {
            failure_ = std::current_exception();
            XML_StopParser(parser_, XML_FALSE);
        }
    }
    [[noreturn]] void fail(XML_Parser parser) const;
    int readPart(XML_Parser parser, const QString &address, const QString &publicId);

    Index element(const QString &name);
    void declare(const QString &name, const XML_Content &model);
    Index particle(const XML_Content &model, int depth);
    void addAttribute(const QString &element, const QString &name, const QString &type,
                      const char *value, bool required);
    Index attributeType(const QString &name);
    Place place() {
        const char *base = XML_GetBase(parser_);
        return {base && base != Internal ? builder_.string(QString::fromUtf8(base)) : 0,
                static_cast<quint32>(expat::line(parser_))};
    }

    SchemaFiles &files_;
    GrammarBuilder builder_;
    /// The one that is at work now.
    XML_Parser parser_ = nullptr;
    QString schemaPath_;
    QString documentation_;
    QHash<QString, Index> elements_;
    /// By the place of their element, in order.
    std::map<Index, std::vector<Attribute>> attributes_;
    QHash<QString, Index> attributeTypes_;
    std::exception_ptr failure_;
};

Data DtdReader::read(const QString &path, const QByteArray &internalSubset) {
    schemaPath_ = path;
    // A document that has nothing but this DTD.
    QByteArray document = "<!DOCTYPE a";
    if (!path.isEmpty())
        document += " SYSTEM '-'";
    document += " [" + internalSubset + "]><a/>";
    const OwnedParser parser(XML_ParserCreate("UTF-8"));
    parser_ = parser.get();
    XML_SetUserData(parser_, this);
    XML_SetElementDeclHandler(parser_, onElement);
    XML_SetAttlistDeclHandler(parser_, onAttribute);
    XML_SetCommentHandler(parser_, onComment);
    XML_SetEntityDeclHandler(parser_, onEntity);
    XML_SetExternalEntityRefHandler(parser_, onExternal);
    XML_SetParamEntityParsing(parser_, XML_PARAM_ENTITY_PARSING_ALWAYS);
    XML_SetBase(parser_, Internal.constData());
    const bool ok = document.size() <= std::numeric_limits<int>::max() &&
                    XML_Parse(parser_, document.constData(), static_cast<int>(document.size()),
                              XML_TRUE) == XML_STATUS_OK;
    if (failure_)
        std::rethrow_exception(failure_);
    if (!ok)
        fail(parser_);
    for (const auto &[element, list] : attributes_)
        builder_.data.types[builder_.data.elements[element].type].attributes =
            builder_.attributes(list);
    return std::move(builder_.data);
}

void DtdReader::fail(XML_Parser parser) const {
    const char *base = XML_GetBase(parser);
    const QString name = base && base != Internal ? QString::fromUtf8(base) : schemaPath_;
    xml::raiseSchemaError(QFileInfo(name).fileName(), expat::line(parser),
                          reasonOf(XML_GetErrorCode(parser)));
}

int DtdReader::onExternal(XML_Parser parser, const XML_Char *context, const XML_Char *,
                          const XML_Char *address, const XML_Char *publicId) {
    // Entities of the document's content are not the DTD's.
    if (context)
        return XML_STATUS_OK;
    DtdReader &reader = self(XML_GetUserData(parser));
    int status = XML_STATUS_ERROR;
    reader.guarded([&] {
        status = reader.readPart(parser, QString::fromUtf8(address), QString::fromUtf8(publicId));
    });
    reader.parser_ = parser;
    return status;
}

int DtdReader::readPart(XML_Parser parser, const QString &address, const QString &publicId) {
    const char *base = XML_GetBase(parser);
    const bool isSchema = base == Internal && address == QLatin1String("-");
    const QString path =
        isSchema ? QFileInfo(schemaPath_).canonicalFilePath()
                 : files_.find(address, base == Internal ? schemaPath_ : QString::fromUtf8(base),
                               publicId);
    std::optional<QByteArray> text = files_.read(path);
    if (text) {
        builder_.data.files.push_back(builder_.string(path));
    } else if (isSchema) {
        xml::raiseSchemaError(QFileInfo(schemaPath_).fileName(), 0,
                              resources::validation_texts::SchemaNotFound.toString());
    } else {
        builder_.noteMissing(address);
        // Behind a part that is not read at all expat would process nothing more.
        text = QByteArray("");
    }
    const OwnedParser part(XML_ExternalEntityParserCreate(parser, nullptr, "UTF-8"));
    parser_ = part.get();
    XML_SetBase(parser_, path.toUtf8().constData());
    if (XML_Parse(parser_, text->constData(), static_cast<int>(text->size()), XML_TRUE) !=
        XML_STATUS_OK) {
        if (failure_)
            std::rethrow_exception(failure_);
        fail(part.get());
    }
    return XML_STATUS_OK;
}

void DtdReader::onComment(void *data, const XML_Char *text) {
    DtdReader &reader = self(data);
    // Lines that are drawn say nothing.
    static const QRegularExpression drawn(QStringLiteral("[-=*~#_+]{4,}"));
    reader.documentation_ = QString::fromUtf8(text).remove(drawn).trimmed();
    if (reader.documentation_.startsWith(QLatin1String("doc:")))
        reader.documentation_ = reader.documentation_.mid(4).trimmed();
}

void DtdReader::onEntity(void *data, const XML_Char *, int, const XML_Char *, int, const XML_Char *,
                         const XML_Char *, const XML_Char *, const XML_Char *) {
    self(data).documentation_.clear();
}

Index DtdReader::element(const QString &name) {
    if (const auto known = elements_.constFind(name); known != elements_.constEnd())
        return *known;
    Data &data = builder_.data;
    Element element;
    element.name = builder_.name(QString(), name);
    element.type = static_cast<Index>(data.types.size());
    data.types.push_back({});
    data.elements.push_back(element);
    const auto place = static_cast<Index>(data.elements.size()) - 1;
    elements_.insert(name, place);
    return place;
}

void DtdReader::onElement(void *data, const XML_Char *name, XML_Content *model) {
    DtdReader &reader = self(data);
    const auto release = [&](XML_Content *content) {
        XML_FreeContentModel(reader.parser_, content);
    };
    const std::unique_ptr<XML_Content, decltype(release)> owned(model, release);
    reader.guarded([&] { reader.declare(QString::fromUtf8(name), *model); });
}

void DtdReader::declare(const QString &name, const XML_Content &model) {
    const Index declared = element(name);
    // Only what is declared may be the root; what is only mentioned may not.
    if (builder_.data.elements[declared].isGlobal)
        return;
    builder_.data.elements[declared].isGlobal = 1;
    builder_.data.elements[declared].place = place();
    builder_.data.elements[declared].documentation = builder_.string(documentation_);
    documentation_.clear();
    Type type;
    type.place = builder_.data.elements[declared].place;
    type.content = model.type == XML_CTYPE_EMPTY   ? Content::Empty
                   : model.type == XML_CTYPE_ANY   ? Content::Any
                   : model.type == XML_CTYPE_MIXED ? Content::Mixed
                                                   : Content::Elements;
    if (model.type == XML_CTYPE_MIXED && model.numchildren == 0)
        type.content = Content::Text;
    else if (type.content == Content::Mixed || type.content == Content::Elements)
        type.particle = particle(model, 0);
    builder_.data.types[builder_.data.elements[declared].type] = type;
}

Index DtdReader::particle(const XML_Content &model, int depth) {
    const bool isMixed = model.type == XML_CTYPE_MIXED;
    const quint32 minimum =
        isMixed || model.quant == XML_CQUANT_OPT || model.quant == XML_CQUANT_REP ? 0 : 1;
    const quint32 maximum =
        isMixed || model.quant == XML_CQUANT_REP || model.quant == XML_CQUANT_PLUS ? Unbounded : 1;
    if (model.type == XML_CTYPE_NAME)
        return builder_.particle(ParticleKind::Element, element(QString::fromUtf8(model.name)),
                                 minimum, maximum);
    if (depth > MaxParticleDepth)
        throw runtime::Error(runtime::error_number::Fail,
                             resources::validation_texts::XdrTooDeep.toString());
    std::vector<Index> parts;
    for (unsigned i = 0; i < model.numchildren; ++i)
        parts.push_back(particle(model.children[i], depth + 1));
    return builder_.group(model.type == XML_CTYPE_SEQ ? ParticleKind::Sequence
                                                      : ParticleKind::Choice,
                          parts, minimum, maximum);
}

void DtdReader::onAttribute(void *data, const XML_Char *element, const XML_Char *name,
                            const XML_Char *type, const XML_Char *value, int required) {
    DtdReader &reader = self(data);
    reader.guarded([&] {
        reader.addAttribute(QString::fromUtf8(element), QString::fromUtf8(name),
                            QString::fromUtf8(type), value, required != 0);
    });
}

void DtdReader::addAttribute(const QString &elementName, const QString &name, const QString &type,
                             const char *value, bool required) {
    documentation_.clear();
    std::vector<Attribute> &list = attributes_[element(elementName)];
    Attribute attribute;
    attribute.name = builder_.name(QString(), name);
    // The first declaration is the one that counts.
    for (const Attribute &known : list) {
        if (known.name == attribute.name)
            return;
    }
    attribute.type = attributeType(type);
    attribute.place = place();
    if (value) {
        attribute.valueRule = required ? ValueRule::Fixed : ValueRule::Default;
        attribute.value = builder_.string(QString::fromUtf8(value));
    }
    attribute.isRequired = required && !value;
    list.push_back(attribute);
}

Index DtdReader::attributeType(const QString &name) {
    if (name == QLatin1String("CDATA"))
        return builder_.builtInType(QStringLiteral("string"));
    const qsizetype open = name.indexOf(u'(');
    if (open < 0)
        return builder_.builtInType(name);
    if (const auto known = attributeTypes_.constFind(name); known != attributeTypes_.constEnd())
        return *known;
    SimpleType type;
    const QString base = open == 0 ? QStringLiteral("NMTOKEN") : QStringLiteral("NOTATION");
    type.base = builder_.builtInType(base);
    type.builtIn = builder_.string(base);
    type.whiteSpace = WhiteSpace::Collapse;
    type.enumeration = builder_.enumeration(name.mid(open + 1, name.size() - open - 2).split(u'|'));
    builder_.data.simpleTypes.push_back(type);
    const auto place = static_cast<Index>(builder_.data.simpleTypes.size()) - 1;
    attributeTypes_.insert(name, place);
    return place;
}

} // namespace

Data grammarFromDtd(const QString &path, const QByteArray &internalSubset, SchemaFiles &files) {
    return DtdReader(files).read(path, internalSubset);
}

} // namespace quillon::grammar
