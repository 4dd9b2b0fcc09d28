#include "platform/xml/schema/xdr/xdr_datatype.h"

#include <gtest/gtest.h>

namespace quillon::xdr {

namespace {

struct Case {
    const char *type;
    QStringList good;
    QStringList bad;
};

const std::vector<Case> Cases{
    {"string", {"", " a b ", "1"}, {}},
    {"id", {"a", "_1", " a ", "p:a"}, {"", "1", "a b", "-a"}},
    {"idref", {"a.b-c"}, {"a b", ""}},
    {"idrefs", {"a", "a b  c"}, {"", "a 1"}},
    {"nmtoken", {"1", "-a"}, {"a b", "", "a,b"}},
    {"nmtokens", {"tok1 tok2 tok3"}, {"", "a ,"}},
    {"entity", {"e"}, {"1"}},
    {"entities", {"e f"}, {"e 1"}},
    {"notation", {"n"}, {"n m"}},
    {"bin.base64",
     {"AAAA", "a+b/", "AA==", "AAA=", "AA AA\nBBBB"},
     {"", "A", "AAA", "A===", "=AAA", "AA-A"}},
    {"bin.hex", {"deadbeef", "00", "Ff"}, {"", "0", "0g", "0 0"}},
    {"boolean", {"0", "1", " 1 "}, {"", "2", "10", "true"}},
    {"char", {"u", " ", "\u65e5", "\U00020000", " u "}, {"", "uu"}},
    {"date",
     {"1998-02-01", "1998-02-31", " 0001-12-31 "},
     {"1998-2-01", "1998-00-01", "1998-13-01", "1998-01-00", "1998-01-32", "98-01-01",
      "1998-01-01T00:00:00"}},
    {"dateTime",
     {"1998-02-01", "1998-02-01T12:34:56", "1998-02-01T23:59:59.123"},
     {"1998-02-01T24:00:00", "1998-02-01T12:60:00", "1998-02-01T12:00:60", "1998-02-01T12:34",
      "1998-02-01T12:34:56.", "1998-02-01T12:34:56Z", "1998-02-01T", "12:34:56"}},
    {"dateTime.tz",
     {"1998-02-01", "1998-02-01T12:34:56", "1998-02-01T12:34:56-06:00", "1998-02-01T12:34:56Z"},
     {"1998-02-01T12:34:56-6:00", "1998-02-01T12:34:56-06", "1998-02-01T12:34:56+06:60"}},
    {"time", {"00:00:00", "23:59:59.9"}, {"24:00:00", "1:00:00", "12:34", "12:34:56Z"}},
    {"time.tz", {"12:34:56", "12:34:56+09:00", "12:34:56Z"}, {"12:34:56+09", "Z"}},
    {"fixed.14.4",
     {"0", "-12345678901234.1234", "+1.5", ".5", "5."},
     {"123456789012345", "1.12345", "", ".", "1e2", "-"}},
    {"float",
     {"3.1416", "0", "-0.0e-999", "1.7976931348623157E+308", "-1.7976931348623157E+308",
      "2.2250738585072014E-308", ".5", "5.", "1e5"},
     {"1.7976931348623159E+308", "1e309", "2.2250738585072009E-308", "1e-400", "", "e5", "1e", ".",
      "1,5", "NaN", "INF", "0x1"}},
    {"r8", {"1"}, {"a"}},
    {"number", {"3.14159265358979323846264338327950288419716939937510"}, {"1.2.3"}},
    {"r4",
     {"3.40282347E+38", "-3.40282347E+38", "1.17549435E-38", "0"},
     {"3.40282348E+38", "1.17549434E-38"}},
    {"int",
     {"2147483647", "-2147483648", "+1", "007"},
     {"2147483648", "-2147483649", "1.0", "", "-", "1 2"}},
    {"i1", {"127", "-128"}, {"128", "-129"}},
    {"i2", {"32767", "-32768"}, {"32768", "-32769"}},
    {"i4", {"2147483647", "-2147483648"}, {"2147483648", "-2147483649"}},
    {"i8",
     {"9223372036854775807", "-9223372036854775808", "-4200000000"},
     {"9223372036854775808", "-9223372036854775809", "99999999999999999999"}},
    {"ui1", {"255", "0"}, {"256", "-1"}},
    {"ui2", {"65535", "0"}, {"65536", "-1"}},
    {"ui4", {"4294967295", "0"}, {"4294967296", "-1"}},
    {"ui8", {"18446744073709551615", "0"}, {"18446744073709551616", "-1", "99999999999999999999"}},
    {"uri", {"http://a/b", ""}, {}},
    {"uuid",
     {"0123456789abcdefABCDEF0123456789", "01234567-89ab-cdef-ABCD-EF0123456789"},
     {"0123456789abcdef0123456789abcde", "0123456789abcdef0123456789abcdeg", ""}},
};

TEST(XdrDatatype, TakesWhatTheTypeHoldsAndNothingElse) {
    for (const Case &row : Cases) {
        const std::optional<Type> type = typeByName(row.type);
        ASSERT_TRUE(type) << row.type;
        for (const QString &value : row.good)
            EXPECT_TRUE(isValue({*type}, value)) << row.type << ": " << value.toStdString();
        for (const QString &value : row.bad)
            EXPECT_FALSE(isValue({*type}, value)) << row.type << ": " << value.toStdString();
    }
    EXPECT_FALSE(typeByName("Int"));
    EXPECT_EQ(nameOf(*typeByName("dateTime.tz")), "dateTime.tz");
}

TEST(XdrDatatype, LengthsCountCharactersOrBytes) {
    const auto allowed = [](Type type, qint64 low, qint64 high, const QString &value) {
        return isLengthAllowed({type, {}, low, high}, value);
    };
    EXPECT_TRUE(allowed(Type::String, 2, 3, "ab"));
    EXPECT_TRUE(allowed(Type::String, 2, 3, "abc"));
    EXPECT_FALSE(allowed(Type::String, 2, 3, "a"));
    EXPECT_FALSE(allowed(Type::String, 2, 3, "abcd"));
    EXPECT_TRUE(allowed(Type::String, 1, 1, "\U00020000"));
    EXPECT_TRUE(allowed(Type::BinHex, 2, 2, "dead"));
    EXPECT_FALSE(allowed(Type::BinHex, 2, 2, "de"));
    EXPECT_TRUE(allowed(Type::BinHex, 2, 2, " dead "));
    EXPECT_TRUE(allowed(Type::BinBase64, 1, 1, "AA=="));
    EXPECT_FALSE(allowed(Type::BinBase64, 1, 1, "AAA="));
}

} // namespace

} // namespace quillon::xdr
