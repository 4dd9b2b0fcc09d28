#pragma once

#include <random>
#include <string>
#include <vector>

namespace quillon::xml::test {

/// Makes documents of everything that the scanner is to understand, and damages them.
class RandomText {
public:
    explicit RandomText(unsigned seed) : random_(seed) {}

    std::string document() {
        hasNewerNames_ = below(3) == 0;
        text_ = oneOf({"", "", "<?xml version='1.0'?>",
                       "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone='no' ?>\r\n"});
        misc();
        if (below(3) == 0)
            text_ += oneOf({"<!DOCTYPE r>", "<!DOCTYPE r SYSTEM 'x.dtd'>\n",
                            "<!DOCTYPE r [<!ENTITY e 'x'><!ENTITY f SYSTEM 'f'>\n"
                            "<!ATTLIST 品名 d CDATA 'def' xml:space CDATA 'preserve'>"
                            "<!ATTLIST b i ID #IMPLIED d CDATA #IMPLIED j CDATA 'k'>]>"});
        misc();
        element();
        misc();
        return text_;
    }

    /// Whether the latest document may have names that the parser does not know.
    bool hasNewerNames() const { return hasNewerNames_; }

    std::string damaged(std::string text) {
        static constexpr char Bytes[] =
            "<>/!?&;='\"[]- \t\n\r#xa1:\0\x01\x7F\x80\xBF\xC2\xE3\xED\xEF\xF0";
        for (unsigned times = 1 + below(3); times > 0 && !text.empty(); --times) {
            const std::size_t at = below(unsigned(text.size()));
            const std::size_t length = below(12);
            switch (below(4)) {
            case 0:
                text[at] = Bytes[below(sizeof Bytes - 1)];
                break;
            case 1:
                text.insert(at, 1, Bytes[below(sizeof Bytes - 1)]);
                break;
            case 2:
                text.erase(at, length);
                break;
            default:
                text.insert(below(unsigned(text.size())), text.substr(at, length));
            }
        }
        return text;
    }

private:
    unsigned below(unsigned bound) { return unsigned(random_() % bound); }
    std::string oneOf(const std::vector<std::string> &choices) {
        return choices[below(unsigned(choices.size()))];
    }
    bool hasDocumentType() const { return text_.find("<!DOCTYPE") != text_.npos; }

    std::string blanks(bool atLeastOne) {
        std::string out(atLeastOne ? 1 : 0, ' ');
        for (unsigned times = below(6) == 0 ? below(12) : below(2); times > 0; --times)
            out += oneOf({" ", "\n", "\t", "\r\n", "\r", "        "});
        return out;
    }
    std::string name() {
        if (hasNewerNames_ && below(4) == 0)
            return oneOf(
                {"Ａ", "𠮷野家", "価格（税込）", "々", "p:𠮟", "a\u203F", "b\uFEFF", "k\u0370"});
        return oneOf({"a", "b", "r", "item", "p:q", "_x-1.2", ":", "a-name-of-more-than-sixteen",
                      "a-name-of-more-than-16-bytes", "品名", "商品コード", "é", "日付·日",
                      "k\u0300"});
    }
    std::string characters(const char *others) {
        std::string out;
        for (unsigned times = below(8); times > 0; --times)
            out += oneOf({"plain text", "あいう", "表",   "é",    "😀",        "\uFFFD", "\u2028",
                          "\u007F",     "\u0085", "\n",   "\r\n", "\r",       "\t",     " ",
                          ">",          "] ",     "] ]>", "'\"",  "eight by", others});
        return out;
    }
    std::string references() {
        return oneOf({"&lt;", "&gt;", "&amp;", "&quot;", "&apos;", "&#9;", "&#x20;", "&#32;",
                      "&#xD7FF;", "&#xE000;", "&#xFFFD;", "&#x10000;", "&#x10ffff;", "&#1114111;",
                      "&#0000065;"});
    }
    void misc() {
        for (unsigned times = below(3); times > 0; --times) {
            text_ += blanks(false);
            other();
        }
        if (!text_.empty())
            text_ += blanks(false);
    }
    void other() {
        if (below(2) == 0)
            text_ += "<!--" + characters("- - ") + "-->";
        else
            text_ += "<?" + name() + (below(2) == 0 ? " " + characters("? >") : "") + "?>";
    }
    void attributes() {
        std::vector<std::string> left = {"a",         "b",    "i",       "d",
                                         "xml:space", "品名", "xmlns:p", "an-attribute-name"};
        for (unsigned count = below(4); count > 0; --count) {
            const std::size_t which = below(unsigned(left.size()));
            const std::string attribute = left[which];
            left.erase(left.begin() + std::ptrdiff_t(which));
            text_ += blanks(true) + attribute + blanks(false) + "=" + blanks(false);
            if (attribute == "xml:space") {
                text_ += oneOf({"'preserve'", "\"default\"", "'&#112;reserve'", "'x'"});
                continue;
            }
            text_ += '"';
            for (unsigned parts = below(4); parts > 0; --parts) {
                std::string part = below(2) == 0 ? references() : characters("' ");
                std::erase(part, '"');
                text_ += part;
            }
            text_ += '"';
        }
    }
    void element() {
        std::vector<std::string> open;
        unsigned budget = below(60);
        do {
            const std::string tag = name();
            text_ += "<" + tag;
            attributes();
            text_ += blanks(false);
            if (below(3) == 0) {
                text_ += "/>";
            } else {
                text_ += ">";
                open.push_back(tag);
            }
            while (!open.empty() && below(3) != 0)
                content(open);
        } while (!open.empty() && budget-- > 0);
        for (; !open.empty(); open.pop_back())
            text_ += blanks(false) + "</" + open.back() + blanks(false) + ">";
    }
    void content(std::vector<std::string> &open) {
        switch (below(7)) {
        case 0:
            text_ += "</" + open.back() + blanks(false) + ">";
            open.pop_back();
            break;
        case 1:
            text_ += characters("]] >");
            break;
        case 2:
            text_ += references();
            break;
        case 3:
            text_ += "<![CDATA[" + characters("<&") + oneOf({"", "]", "]]"}) + "]]>";
            break;
        case 4:
            other();
            break;
        case 5:
            if (text_.find("<!ENTITY") != text_.npos)
                text_ += oneOf({"&e;", "&f;"});
            break;
        default:
            text_ += blanks(false);
        }
    }

    std::mt19937 random_;
    bool hasNewerNames_ = false;
    std::string text_;
};

} // namespace quillon::xml::test
