#include "platform/runtime/error.h"
#include "platform/runtime/numbers.h"

#include <QString>

#include <functional>
#include <gtest/gtest.h>

using namespace quillon::runtime;

namespace {

/// The number of the error that an action raises; 0 when it raises none.
qint32 errorOf(const std::function<void()> &action) {
    try {
        action();
    } catch (const Error &error) {
        return error.number();
    }
    return 0;
}

TEST(ToInteger, ReadsDecimalNumbersAndRoundsHalfToEven) {
    const std::pair<QStringView, int> cases[] = {
        {u"0", 0},           {u"10", 10},          {u" \t+7 ", 7},        {u"-12", -12},
        {u"2.5", 2},         {u"3.5", 4},          {u"-2.5", -2},         {u"2.51", 3},
        {u".5", 0},          {u"1.", 1},           {u"1.5e1", 15},        {u"32767E0", 32767},
        {u"-32768", -32768}, {u"32767.49", 32767}, {u"-32768.5", -32768}, {u"1e-400", 0},
        {u"007", 7},
    };
    for (const auto &[text, number] : cases)
        EXPECT_EQ(toInteger(text), number) << qPrintable(text.toString());
}

TEST(ToInteger, RaisesWhatItCannotTake) {
    for (const QStringView text :
         std::initializer_list<QStringView>{u"", u" ", u"abc", u"1 2", u"1e", u".", u"+-1", u"0x10",
                                            u"inf", u"nan", u"１", u"1,000", u"12px"})
        EXPECT_EQ(errorOf([&] { toInteger(text); }), 13) << qPrintable(text.toString());
    for (const QStringView text :
         std::initializer_list<QStringView>{u"32768", u"32767.5", u"-32768.51", u"1e5", u"1e400"})
        EXPECT_EQ(errorOf([&] { toInteger(text); }), 6) << qPrintable(text.toString());
    EXPECT_EQ(toInteger(qint64{32767}), 32767);
    EXPECT_EQ(errorOf([] { toInteger(qint64{1} << 32); }), 6);
}

TEST(CheckedAdd, StopsAtTheEdgeOfItsWidth) {
    EXPECT_EQ(checkedAdd16(32766, 1), 32767);
    EXPECT_EQ(errorOf([] { checkedAdd16(32767, 1); }), 6);
    EXPECT_EQ(errorOf([] { checkedAdd16(-32768, -1); }), 6);
    EXPECT_EQ(checkedAdd32(2147483646, 1), 2147483647);
    EXPECT_EQ(errorOf([] { checkedAdd32(2147483647, 1); }), 6);
}

} // namespace
