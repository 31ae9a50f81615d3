#include "sitedb/site_record.h"

#include <gtest/gtest.h>

#include "fakes/fake_files.h"
#include "fakes/fake_http1.h"
#include "sitedb/entry_settings.h"
#include "sitedb/load_site_record.h"
#include "sitedb/preferences.h"
#include "sitedb/site_database.h"
#include "sitedb/wizard_form.h"

namespace qv {
namespace {

TEST(SiteRecordBytes, LieWhereTheLayoutSays) {
    SiteRecord record;
    record.SetText(field::SiteUrl, "http://h/");
    record.SetNumber(field::EntryIsSite, -1);
    record.SetNumber(field::QuestionableOnly, 0x1234);
    record.SetText(field::ReportAddresses[2], "c@d.e");
    const std::string& bytes = record.Bytes();
    ASSERT_EQ(bytes.size(), 7514U);
    EXPECT_EQ(bytes.substr(0, 10), "http://h/ ");
    EXPECT_EQ(bytes[599], ' ');
    EXPECT_EQ(bytes[600], '\0');
    EXPECT_EQ(bytes.substr(1114, 2), "\xFF\xFF");
    EXPECT_EQ(bytes.substr(7099, 2), "\x34\x12");
    EXPECT_EQ(bytes.substr(7225, 6), "c@d.e ");
    EXPECT_EQ(bytes[7284], ' ');
    EXPECT_EQ(bytes[7285], '\0');
}

TEST(SiteRecordBytes, TextsAreCutToWholeCharacters) {
    SiteRecord record;
    record.SetText(field::ProxyPortText, "123456789\xC3\xA9");
    EXPECT_EQ(record.RawText(field::ProxyPortText), "123456789 ");
    EXPECT_EQ(record.Text(field::ProxyPortText), "123456789");
}

TEST(SiteRecordBytes, AShortReadLeavesZeros) {
    const SiteRecord record("http://h/  ");
    EXPECT_EQ(record.SiteUrl(), "http://h/");
    EXPECT_EQ(record.Bytes().size(), 7514U);
    EXPECT_EQ(record.Number(field::HttpTimeout), 0);
}

TEST(DefaultRecordTest, HoldsTheDefaults) {
    const SiteRecord record = DefaultRecord("\\home\\");
    EXPECT_EQ(record.RawText(field::DocumentTypes).substr(0, 12), " .htm .html ");
    EXPECT_EQ(record.Number(field::IncludeImages), 1);
    EXPECT_EQ(record.Number(field::HttpTimeout), 60);
    EXPECT_EQ(record.Number(field::MakeHtmlReport), -1);
    EXPECT_EQ(record.Text(field::FtpPassword), "guest@quorvantis.local");
    EXPECT_EQ(record.Text(field::ReportFolder), "\\home\\Reports\\");
    EXPECT_EQ(record.RawText(field::ProxyUserName),
              std::string_view("\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 30));
}

TEST(SiteRecordKey, FollowsTheKind) {
    SiteRecord record;
    record.SetText(field::SiteUrl, "http://h/");
    record.SetText(field::SiteFileName, "a.htm");
    record.SetText(field::SiteFolder, "\\w\\");
    EXPECT_EQ(record.Key(), "http://h/a.htm");
    record.SetNumber(field::EntryMode, 1);
    EXPECT_EQ(record.Key(), "\\w\\a.htm");
    record.SetNumber(field::EntryIsSite, -1);
    EXPECT_EQ(record.Key(), "http://h/");
}

TEST(RepairReportFieldsTest, MendsRecordsWithoutAFolder) {
    SiteRecord record;
    record.SetNumber(field::MakeTextReport, 77);
    EXPECT_TRUE(RepairReportFields(record, "\\r\\"));
    EXPECT_EQ(record.Text(field::ReportFolder), "\\r\\");
    EXPECT_EQ(record.Number(field::MakeTextReport), 0);
    EXPECT_EQ(record.Number(field::QuestionableOnly), -1);
    EXPECT_FALSE(RepairReportFields(record, "\\other\\"));
}

TEST(GetFileNameTest, SplitsAddresses) {
    const auto split = [](const std::string& url) {
        std::string path;
        std::string file;
        GetFileName(url, path, file);
        return path + "|" + file;
    };
    EXPECT_EQ(split("http://h"), "http://h/|");
    EXPECT_EQ(split("http://h/"), "http://h/|");
    EXPECT_EQ(split("http://h/a"), "http://h/|a");
    EXPECT_EQ(split("http://h/a/b.htm"), "http://h/a/|b.htm");
    EXPECT_EQ(split("http://h/a/"), "http://h/a/|");
}

TEST(StoredFolderTest, HasOneBackslashAtItsEnd) {
    EXPECT_EQ(StoredFolder("/home/me"), "\\home\\me\\");
    EXPECT_EQ(StoredFolder("\\home\\me\\\\"), "\\home\\me\\");
    EXPECT_EQ(StoredFolder(""), "");
}

std::string OldRecord(const std::string& url, std::int16_t timeout) {
    std::string bytes = url;
    bytes.resize(kOldRecordSize, ' ');
    bytes[1724] = static_cast<char>(timeout);
    bytes[1725] = 0;
    bytes.replace(1124, 5, " .old");
    bytes.replace(1224, 5, " /o/ ");
    return bytes;
}

struct Database : testing::Test {
    FakeFiles files;
    RunFlags flags;
    FakeHttp1 http{flags};
    Session session;
    Settings settings;
    Database() { session.AppPath = "\\home\\"; }
    SiteDatabase sites{files, session};
    std::string told;
    int yields = 0;
    void Convert() {
        sites.ConvertSiteDatabase([this](const std::string& text) { told = text; }, [this] { ++yields; });
    }
    std::string& File(const char* name) { return files.files["\\home\\" + std::string(name)]; }
};

TEST_F(Database, IsCreatedEmpty) {
    EXPECT_TRUE(sites.ReadAll().empty());
    EXPECT_TRUE(files.FileExists("\\home\\sitedata.zdt"));
}

TEST_F(Database, LosesAPartialRecordFromTheCount) {
    File("sitedata.zdt") = SiteRecord().Bytes() + SiteRecord().Bytes().substr(0, 7000);
    EXPECT_EQ(sites.ReadAll().size(), 1U);
    EXPECT_TRUE(sites.Read(2).has_value());
    EXPECT_FALSE(sites.Read(3).has_value());
    EXPECT_FALSE(sites.Read(0).has_value());
    EXPECT_FALSE(sites.Read(-1).has_value());
}

TEST_F(Database, ConvertsTheOldLayout) {
    File("sitedata.zdt") = OldRecord("http://one/", 33) + OldRecord("http://two/", 44) + "tail";
    File("preferen.zdt") = OldRecord("", 55);
    Convert();
    EXPECT_EQ(told, "Converting Database, Please Wait...");
    const auto records = sites.ReadAll();
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[1].SiteUrl(), "http://two/");
    EXPECT_EQ(records[1].Number(field::HttpTimeout), 44);
    EXPECT_EQ(records[1].Text(field::DocumentTypes), ".htm .html .shtml .asp .aspx .php .cfm .cfml .adp .nsf");
    EXPECT_EQ(records[1].Text(field::IgnoreOpenPaths), "/o/");
    EXPECT_EQ(records[1].Text(field::FormatVersion), "Quorvantis 5.0");
    EXPECT_EQ(File("preferen.zdt").size(), 7514U);
    EXPECT_EQ(SiteRecord(File("preferen.zdt")).Number(field::HttpTimeout), 55);
    EXPECT_FALSE(files.FileExists("\\home\\datatemp.zdt"));
    EXPECT_EQ(yields, 2);
}

TEST_F(Database, ConversionCarriesWhatItDoesNotAssign) {
    std::string old =
        OldRecord("http://one/", 33) + OldRecord("http://two/", 44) + OldRecord("http://3/", 5) + OldRecord("http://4/", 5);
    old[7000] = 'Q';
    File("sitedata.zdt") = old;
    Convert();
    for (const auto& record : sites.ReadAll()) EXPECT_EQ(record.Bytes()[7000], 'Q');
}

TEST_F(Database, ThePreferencesAreOfTheOldLayoutWheneverTheEntriesAre) {
    const std::string preferences = DefaultRecord("\\home\\").Bytes();
    File("sitedata.zdt") = OldRecord("http://one/", 33);
    File("preferen.zdt") = preferences;
    Convert();
    EXPECT_EQ(File("preferen.zdt").size(), 7514U);
    EXPECT_NE(File("preferen.zdt"), preferences);
    files.files.erase("\\home\\preferen.zdt");
    File("sitedata.zdt") = OldRecord("http://one/", 33);
    Convert();
    EXPECT_FALSE(files.FileExists("\\home\\preferen.zdt"));  // there is nothing to convert
}

TEST_F(Database, PresentAndEmptyFilesAreLeftAlone) {
    File("preferen.zdt") = OldRecord("", 55);
    File("sitedata.zdt") = "";
    Convert();
    EXPECT_EQ(File("preferen.zdt").size(), kOldRecordSize);
    File("sitedata.zdt") = DefaultRecord("\\home\\").Bytes();
    Convert();
    EXPECT_EQ(File("preferen.zdt").size(), kOldRecordSize);
    EXPECT_EQ(told, "");
}

TEST_F(Database, LoadingAnEntryPutsItInForce) {
    SiteRecord record = DefaultRecord("\\home\\");
    record.SetText(field::SiteUrl, "http://Host.Dom/x/");
    record.SetText(field::IgnoreOpenPaths, " /a/  /b/ ");
    record.SetText(field::IgnoreLinkPaths, "");
    record.SetText(field::IgnoreText(3), " words here ");
    record.SetNumber(field::EntryMode, 1);
    File("sitedata.zdt") = record.Bytes();
    session.SiteHostAddress = "1.2.3.4";
    SiteRecordLoader loader(sites, session, settings, http);
    loader.LoadSiteRecord(1, 0);
    EXPECT_EQ(settings.ProgramMode, 0);
    EXPECT_EQ(settings.IgnoreOpenPathList, (std::vector<std::string>{"/a/", "", "/b/"}));
    EXPECT_TRUE(settings.IgnoreLinkPathList.empty());
    EXPECT_EQ(settings.IgnoreTextList, std::vector<std::string>{"words here"});
    EXPECT_EQ(session.SiteHost, "host.dom");
    EXPECT_EQ(session.SiteHostAddress, "");
    loader.LoadSiteRecord(1, 1);
    EXPECT_EQ(settings.ProgramMode, 1);
    session.SiteHostAddress = "1.2.3.4";
    loader.LoadSiteRecord(1, 0);
    EXPECT_EQ(session.SiteHostAddress, "1.2.3.4");
    settings.HttpTimeout = 7;
    loader.LoadSiteRecord(2, 0);
    EXPECT_EQ(settings.HttpTimeout, 7);
}

TEST_F(Database, AReportFolderInForceEndsInABackslash) {
    SiteRecord record = DefaultRecord("\\home\\");
    for (const auto& [stored, inForce] : {std::pair{"\\r", "\\r\\"}, {"\\r\\", "\\r\\"}, {"", ""}}) {
        record.SetText(field::ReportFolder, stored);
        CopyCommonSettings(record, settings);
        EXPECT_EQ(settings.ReportFolder, inForce);
    }
}

TEST_F(Database, PreferencesAreWrittenOnceAndApplied) {
    Preferences preferences(files, session, settings);
    preferences.ReadAtStart();
    EXPECT_EQ(File("preferen.zdt").size(), 7514U);
    settings.IgnoreTextList = {"x"};
    settings.FtpUserName = "kept";
    preferences.ApplyPreferences();
    EXPECT_TRUE(settings.IgnoreTextList.empty());
    EXPECT_EQ(settings.FtpUserName, "kept");
    EXPECT_EQ(settings.IgnoreLinkPaths, " /banners/ ");
}

}  // namespace
}  // namespace qv
