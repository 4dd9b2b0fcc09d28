#include "platform/runtime/error.h"
#include "platform/runtime/numbers.h"
#include "platform/runtime/strings.h"

#include <gtest/gtest.h>

using namespace quillon::runtime;

namespace {

TEST(LineEnds, AreReplacedOneByOne) {
    EXPECT_EQ(LFtoCRLF(QStringLiteral("a\n\nb\r\nc\rd")), QStringLiteral("a\r\n\r\nb\r\r\nc\rd"));
    EXPECT_EQ(CRLFtoLF(QStringLiteral("a\r\n\r\nb\r\r\nc\rd\n")),
              QStringLiteral("a\n\nb\r\nc\rd\n"));
}

TEST(Substrings, CountFromOne) {
    const QStringView text = u"ab=ab";
    EXPECT_EQ(instr(text, u"ab"), 1);
    EXPECT_EQ(instr(text, u"="), 3);
    EXPECT_EQ(instr(text, u"A"), 0);
    EXPECT_EQ(instr(text, u""), 1);
    EXPECT_EQ(instr(u"", u""), 0);
    EXPECT_EQ(left(text, 2), u"ab");
    EXPECT_EQ(left(text, 9), text);
    EXPECT_EQ(mid(text, 4), u"ab");
    EXPECT_EQ(mid(text, 6), u"");
    EXPECT_EQ(mid(text, 99), u"");
    EXPECT_EQ(mid(text, 2, 2), u"b=");
    EXPECT_EQ(mid(text, 5, 9), u"b");
    EXPECT_THROW(left(text, -1), Error);
    EXPECT_THROW(mid(text, 0), Error);
    EXPECT_THROW(mid(text, 1, -1), Error);
}

} // namespace
