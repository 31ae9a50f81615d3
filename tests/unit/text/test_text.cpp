#include <gtest/gtest.h>

#include "text/basic_text.h"
#include "text/characters.h"
#include "text/lines.h"
#include "text/numbers.h"

namespace qv {
namespace {

TEST(BasicText, TrimsBlanksAlone) {
    EXPECT_EQ(Trim("  a b \t "), "a b \t");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(TrimLeft("  a "), "a ");
    EXPECT_EQ(TrimRight("  a "), "  a");
}

TEST(BasicText, LowersAsciiAlone) { EXPECT_EQ(Lower("AZaz[\xC3\x84"), "azaz[\xC3\x84"); }

TEST(BasicText, ReplacesFromTheLeftWithoutLookingAtReplacements) {
    EXPECT_EQ(ReplaceAll("aaa", "aa", "a"), "aa");
    EXPECT_EQ(ReplaceAll("x--y", "-", "--"), "x----y");
    EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
}

TEST(BasicText, ComparesBeginningsInAnyCase) {
    EXPECT_TRUE(StartsWithLower("HTTPS://x", "https:"));
    EXPECT_FALSE(StartsWithLower("http", "https:"));
    EXPECT_EQ(BetweenBlanks("  .htm .asp "), " .htm .asp ");
    EXPECT_EQ(BetweenBlanks(""), "  ");
}

TEST(Numbers, TakesTheLeadingValue) {
    EXPECT_EQ(LeadingNumber(" 12 "), 12);
    EXPECT_EQ(LeadingNumber("-1"), -1);
    EXPECT_EQ(LeadingNumber("8080abc"), 8080);
    EXPECT_EQ(LeadingNumber("1.5"), 1.5);
    EXPECT_EQ(LeadingNumber("abc"), 0);
    EXPECT_EQ(LeadingNumber(""), 0);
}

TEST(Numbers, RefusesWhatDoesNotFit) {
    EXPECT_EQ(LeadingInt16("32767"), 32767);
    EXPECT_EQ(LeadingInt16("32768"), std::nullopt);
    EXPECT_EQ(LeadingInt32("99999999999999999999"), std::nullopt);
    EXPECT_EQ(LeadingInt32("-99999999999999999999"), std::nullopt);
}

TEST(Numbers, RoundsHalvesToEven) {
    EXPECT_EQ(RoundToInt16(2.5), 2);
    EXPECT_EQ(RoundToInt16(3.5), 4);
    EXPECT_EQ(RoundToInt16(4.6), 5);
    EXPECT_EQ(RoundToInt16(1e9), 32767);
}

TEST(Numbers, WritesPrintFormAndFiveDigits) {
    EXPECT_EQ(PrintForm(7), " 7");
    EXPECT_EQ(PrintForm(0), " 0");
    EXPECT_EQ(PrintForm(-1), "-1");
    EXPECT_EQ(FiveDigits(42), "00042");
    EXPECT_EQ(FiveDigits(100000), "100000");
}

TEST(Characters, CountsCodePointsOfUtf8AndBytesOfTheRest) {
    EXPECT_EQ(CharacterCount("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"), 4U);
    EXPECT_EQ(CharacterCount("a\xC3"), 2U);
    EXPECT_EQ(FirstCharacters("\xC3\xA9\xC3\xA9x", 2), "\xC3\xA9\xC3\xA9");
    EXPECT_EQ(FirstCharacters("\xC3\xC3\xC3", 2), "\xC3\xC3");
    EXPECT_EQ(PadCharacters("\xC3\xA9", 3), "\xC3\xA9  ");
}

TEST(Characters, RefusesOverlongAndSurrogateSequences) {
    EXPECT_FALSE(IsUtf8("\xC0\x80"));
    EXPECT_FALSE(IsUtf8("\xED\xA0\x80"));
    EXPECT_FALSE(IsUtf8("\xF4\x90\x80\x80"));
    EXPECT_FALSE(IsUtf8("\xE2\x82"));
    EXPECT_TRUE(IsUtf8(std::string_view("\0\x7F", 2)));
}

TEST(Characters, CutsToWholeCharactersThatFit) {
    EXPECT_EQ(FitBytes("ab\xC3\xA9", 3), "ab");
    EXPECT_EQ(FitBytes("ab\xC3\xA9", 4), "ab\xC3\xA9");
    EXPECT_EQ(FitBytes("\xC3\xC3\xC3", 2), "\xC3\xC3");
}

TEST(Characters, TakesOtherBytesAsWindows1252) {
    EXPECT_EQ(AsUtf8("a\xE9\x80"), "a\xC3\xA9\xE2\x82\xAC");
    EXPECT_EQ(AsUtf8("\xC3\xA9"), "\xC3\xA9");
}

TEST(Lines, ReadsEveryLineEnd) {
    LineReader reader("a\r\nb\rc\nd");
    EXPECT_EQ(reader.Next(), "a");
    EXPECT_EQ(reader.Position(), 3U);
    EXPECT_EQ(reader.Next(), "b");
    EXPECT_EQ(reader.Next(), "c");
    EXPECT_FALSE(reader.AtEnd());
    EXPECT_EQ(reader.Next(), "d");
    EXPECT_TRUE(reader.AtEnd());
    EXPECT_EQ(reader.Next(), "");
}

TEST(Lines, HasNoLineBehindTheLastEnd) {
    LineReader reader("a\r\n");
    reader.Next();
    EXPECT_TRUE(reader.AtEnd());
    LineReader doubled("\n\r");
    EXPECT_EQ(doubled.Next(), "");
    EXPECT_EQ(doubled.Next(), "");
    EXPECT_TRUE(doubled.AtEnd());
}

TEST(Lines, WritesCrLf) { EXPECT_EQ(LineWriter().Line("a").Line("").Bytes(), "a\r\n\r\n"); }

}  // namespace
}  // namespace qv
