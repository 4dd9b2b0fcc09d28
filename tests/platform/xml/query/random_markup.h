#pragma once

#include <initializer_list>
#include <map>
#include <random>
#include <string>

namespace quillon::xml::test {

/// The same ones for the same seed.
class RandomChoices {
public:
    explicit RandomChoices(unsigned seed) : random_(seed) {}

    unsigned number(unsigned below) { return unsigned(random_() % below); }
    bool chance(unsigned in) { return number(in) == 0; }
    const char *one(std::initializer_list<const char *> all) {
        return *(all.begin() + number(unsigned(all.size())));
    }

private:
    std::mt19937 random_;
};

/// Documents with few names, so that they meet again in other namespaces, with other prefixes, and
/// as duplicates.
class RandomMarkup : RandomChoices {
public:
    using RandomChoices::RandomChoices;

    std::string document() {
        std::string text = chance(2) ? "<!DOCTYPE r [<!ENTITY e 'x'>"
                                       "<!ATTLIST a id CDATA 'd' xmlns:p CDATA 'urn:9'>]>"
                                     : "<!DOCTYPE r [<!ENTITY e 'x'>]>";
        text += chance(2) ? "<!--a--><?go on?>" : "";
        return text + element(0) + (chance(3) ? "<!--b--><!--c-->" : "");
    }

private:
    std::string attributes() {
        std::map<std::string, std::string> all;
        for (unsigned i = number(6); i > 0; --i)
            all[one({"id", "no", "値", "p:id", "q:id", "u:id", "xml:id", "xml:lang"})] =
                one({"'1'", "'2'", "'3'", "' 10 '", "'-1.5'", "\"it's\"", "'say \"x\"'",
                     "'&quot;&apos;'", "' '", "''", "'a&#10;b'", "'&lt;'"});
        for (unsigned i = chance(2) ? number(5) : 0; i > 0; --i)
            all[one({"xmlns", "xmlns:p", "xmlns:q", "xmlns:r"})] =
                one({"'urn:1'", "'urn:1'", "'urn:2'", "''"});
        std::string text;
        for (const auto &[name, value] : all)
            text += " " + name + "=" + value;
        return text;
    }
    std::string element(int depth) {
        const std::string name =
            one({"a", "a", "a", "b", "p:a", "q:a", "r:a", "u:a", "div", "要素", "xml:a"});
        std::string text = "<" + name + attributes();
        if (chance(5))
            return text + "/>";
        text += ">";
        for (unsigned i = number(depth < 4 ? 5 : 1); i > 0; --i)
            text += chance(2) ? element(depth + 1)
                              : one({"t", "2", " 10\n", "1&#x30;", "あ い", "<![CDATA[c]]>", "&e;",
                                     "\n  <b> </b>\n", "<!--c-->", "<?p i?>", "<?q i?>", "<a/>",
                                     "<a id='2'/>", "<b xml:space='preserve'> <a> </a></b>",
                                     "<a xmlns=''/>"});
        return text + "</" + name + ">";
    }
};

} // namespace quillon::xml::test
