// The line files, byte for byte, and the lines that name an entry.
#include <gtest/gtest.h>

#include "enterprise/enterprise_files.h"
#include "fakes/fake_files.h"

namespace qv {
namespace {

using List = std::vector<std::string>;

TEST(EnterpriseList, HasItsCountAndANumberALine) {
    EXPECT_EQ(ComposeEnterpriseList({"3", "1", "12"}), "3\r\n3\r\n1\r\n12\r\n");
    EXPECT_EQ(ComposeEnterpriseList({}), "0\r\n");
    EXPECT_EQ(ParseEnterpriseList("3\r\n3\r\n1\r\n12\r\n"), (List{"3", "1", "12"}));
}

TEST(EnterpriseList, TakesAsManyLinesAsItsCountSays) {
    EXPECT_EQ(ParseEnterpriseList("2\r\n3\r\n1\r\n12\r\n"), (List{"3", "1"}));
    EXPECT_EQ(ParseEnterpriseList("0\r\n3\r\n"), List{});
    EXPECT_EQ(ParseEnterpriseList("-4\r\n3\r\n"), List{});
    EXPECT_EQ(ParseEnterpriseList("x\r\n3\r\n"), List{});
    EXPECT_EQ(ParseEnterpriseList(""), List{});
}

TEST(EnterpriseList, ThatIsCutShortHasWhatIsThere) {
    EXPECT_EQ(ParseEnterpriseList("5\r\n3\r\n1"), (List{"3", "1"}));
    EXPECT_EQ(ParseEnterpriseList("2000000000\r\n3\r\n"), List{"3"});
}

Settings SomeSettings() {
    Settings settings;
    settings.MakeEventLog = kSet;
    settings.EmailLogs = kClear;
    settings.ExitWhenComplete = kSet;
    settings.MakeHtmlLog = kClear;
    settings.LogFolder = "\\logs\\";
    return settings;
}

TEST(EnterpriseSettings, AreFiveLinesAndEmptyOnes) {
    EXPECT_EQ(ComposeEnterpriseSettings(SomeSettings(), kEmptyLinesOfAutoStart),
              "-1\r\n 0\r\n-1\r\n 0\r\n\\logs\\\r\n\r\n\r\n\r\n\r\n\r\n\r\n");
    EXPECT_EQ(ComposeEnterpriseSettings(SomeSettings(), kEmptyLinesOfSettings),
              "-1\r\n 0\r\n-1\r\n 0\r\n\\logs\\\r\n\r\n\r\n\r\n\r\n\r\n");
}

TEST(EnterpriseSettings, ComeBackFromTheirLines) {
    Settings settings;
    ParseEnterpriseSettings(" 0\r\n-1\r\n0\r\n1\r\n\\other\\\r\n\r\n", settings);
    EXPECT_EQ(settings.MakeEventLog, 0);
    EXPECT_EQ(settings.EmailLogs, -1);
    EXPECT_EQ(settings.ExitWhenComplete, 0);
    EXPECT_EQ(settings.MakeHtmlLog, 1);
    EXPECT_EQ(settings.LogFolder, "\\other\\");
}

TEST(EnterpriseSettings, ThatAreCutShortKeepWhatTheyDontTell) {
    Settings settings = SomeSettings();
    ParseEnterpriseSettings(" 0\r\n-1\r\n", settings);
    EXPECT_EQ(settings.MakeEventLog, 0);
    EXPECT_EQ(settings.EmailLogs, -1);
    EXPECT_EQ(settings.ExitWhenComplete, -1);
    EXPECT_EQ(settings.LogFolder, "\\logs\\");
}

TEST(EnterpriseSettings, HaveTheirDefaultsWithoutAFile) {
    FakeFiles files;
    Settings settings = SomeSettings();
    ReadEnterpriseSettings(files, "\\home\\", settings);
    EXPECT_EQ(settings.LogFolder, "\\home\\Logs\\");
    EXPECT_EQ(settings.MakeHtmlLog, -1);
    EXPECT_EQ(settings.MakeEventLog, 0);
    EXPECT_EQ(settings.EmailLogs, 0);
    files.files["\\home\\newencfg.zdt"] = "-1\r\n-1\r\n 0\r\n 0\r\n\\l\\\r\n";
    ReadEnterpriseSettings(files, "\\home\\", settings);
    EXPECT_EQ(settings.LogFolder, "\\l\\");
    EXPECT_EQ(settings.MakeHtmlLog, 0);
    EXPECT_EQ(settings.MakeEventLog, -1);
}

TEST(EnterpriseFiles, SettingsThatAFileIsTooShortForStayAsTheyWere) {
    FakeFiles files;
    files.files["\\home\\newencfg.zdt"] = " 0\r\n-1\r\n";
    Settings settings;
    ReadEnterpriseSettings(files, "\\home\\", settings);
    EXPECT_EQ(settings.EmailLogs, -1);
    EXPECT_EQ(settings.MakeHtmlLog, 0);
    EXPECT_EQ(settings.LogFolder, "");
}

SiteRecord Record(std::int16_t mode, bool isSite) {
    SiteRecord record;
    record.SetText(field::SiteUrl, "http://h/");
    record.SetText(field::SiteFileName, "a.htm");
    record.SetNumber(field::EntryMode, mode);
    record.SetNumber(field::EntryIsSite, isSite ? -1 : 0);
    return record;
}

TEST(EntryLine, NamesModeKindAndAddress) {
    EXPECT_EQ(EntryLine(Record(kInternetMode, true)), "Internet Site: http://h/");
    EXPECT_EQ(EntryLine(Record(kInternetMode, false)), "Internet Document: http://h/a.htm");
    EXPECT_EQ(EntryLine(Record(kLocalMode, true)), "Local Site: http://h/");
    EXPECT_EQ(EntryLine(Record(kLocalMode, false)), "Local Document: http://h/a.htm");
}

TEST(EntryLine, OfAnElementThatNamesNoRecordIsThatOfAnEmptyOne) {
    const std::vector<SiteRecord> records = {Record(kLocalMode, true)};
    EXPECT_EQ(EntryLines({"1", " 1 ", "2", "0", "-1", "x", "99999999999"}, records),
              (List{"Local Site: http://h/", "Local Site: http://h/", "Internet Document: ", "Internet Document: ",
                    "Internet Document: ", "Internet Document: ", "Internet Document: "}));
}

TEST(IsListed, ComparesNumbers) {
    EXPECT_TRUE(IsListed({"3", " 12"}, 12));
    EXPECT_FALSE(IsListed({"3", "12"}, 1));
    EXPECT_FALSE(IsListed({}, 1));
}

}  // namespace
}  // namespace qv
