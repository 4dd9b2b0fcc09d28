#include "validation/tag_places.h"

#include <gtest/gtest.h>

namespace quillon::validation {

namespace {

/// The names of all start tags, and behind them where each attribute `k` stands.
std::string tagsIn(const QByteArray &markup) {
    std::vector<quint32> all(20);
    for (quint32 i = 0; i < all.size(); ++i)
        all[i] = i;
    QByteArrayList found;
    for (const TagPlace &tag : tagPlaces(markup, all)) {
        const TagPlace place = attributePlace(markup, tag, "k");
        found << markup.mid(tag.at, tag.length) +
                     (place.at == tag.at ? QByteArray() : '@' + markup.mid(place.at, place.length));
    }
    return found.join(' ').toStdString();
}

TEST(TagPlaces, AreThoseOfElementsAlone) {
    const std::pair<QByteArray, std::string> cases[] = {
        {"<a><b/><c></c></a>", "a b c"},
        {"<?xml version='1.0'?><!--<x>--><a><![CDATA[<x>]]><?p <x>?><b/></a>", "a b"},
        {"<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY e '<x>]>'><!--'--> ]><a><b/></a>", "a b"},
        {"<a t='>'><b t=\"'>\" k='1'/></a>", "a b@k='1'"},
        {"<a kk='k' k = 'x y'><b\nk='2'\n/></a>", "a@k = 'x y' b@k='2'"},
        // What is being typed.
        {"<a><b k='1</a>", "a b@k='1</a>"},
        {"<a", "a"},
        {"<a><!--", "a"},
        {"", ""},
    };
    for (const auto &[markup, tags] : cases)
        EXPECT_EQ(tagsIn(markup), tags) << markup.toStdString();
}

TEST(TagPlaces, OnlyThoseWanted) {
    const QByteArray markup = "<a><b/><c/><d/></a>";
    const std::vector<TagPlace> places = tagPlaces(markup, {1, 3, 9});
    ASSERT_EQ(places.size(), 2U);
    EXPECT_EQ(markup.mid(places[0].at, places[0].length), "b");
    EXPECT_EQ(markup.mid(places[1].at, places[1].length), "d");
}

} // namespace

} // namespace quillon::validation
