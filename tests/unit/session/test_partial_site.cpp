#include <gtest/gtest.h>

#include "fakes/fake_files.h"
#include "session/partial_site.h"

namespace qv {
namespace {

const std::string kCache = "\\cache\\";

TEST(AddressLists, KeepTheirOrderAndKnowWhatTheyHold) {
    AddressList list;
    list.Add(" http://h/a ", " \\w\\a ");
    list.Add("http://h/b");
    list.Add("http://h/a");
    EXPECT_EQ(list.Count(), 3U);
    EXPECT_EQ(list.Url(0), "http://h/a");
    EXPECT_EQ(list.Path(0), "\\w\\a");
    EXPECT_TRUE(list.Contains(" http://h/b"));
    EXPECT_FALSE(list.Contains("http://h/A"));
    AddressList taken;
    taken.Append(list);
    EXPECT_EQ(list.Count(), 0U);
    EXPECT_FALSE(list.Contains("http://h/a"));
    EXPECT_EQ(taken.Count(), 3U);
    EXPECT_TRUE(taken.Contains("http://h/a"));
}

TEST(PartialSites, AreThreeFilesOfLines) {
    FakeFiles files;
    AddressList queue;
    queue.Add("http://h/a", "\\w\\a");
    queue.Add("http://h/b");
    AddressList visited;
    visited.Add("http://h/");
    WritePartialSite(files, kCache, "http://h/", queue, visited);
    EXPECT_EQ(files.files["\\cache\\resumes.zdt"], "http://h/\r\n 2\r\n 1\r\n");
    EXPECT_EQ(files.files["\\cache\\resume1.zdt"], "http://h/a\r\n\\w\\a\r\nhttp://h/b\r\n\r\n");
    EXPECT_EQ(files.files["\\cache\\resume2.zdt"], "http://h/\r\n");
    EXPECT_EQ(files.writes.back(), "\\cache\\resumes.zdt");  // the sign of a partial site comes last
    const PartialSite read = ReadPartialSite(files, kCache);
    EXPECT_EQ(read.SiteRoot, "http://h/");
    ASSERT_EQ(read.Pending.Count(), 2U);
    EXPECT_EQ(read.Pending.Path(0), "\\w\\a");
    ASSERT_EQ(read.Visited.Count(), 1U);
    EXPECT_TRUE(HasPartialSite(files, kCache));
    DeletePartialSite(files, kCache);
    EXPECT_TRUE(files.files.empty());
}

TEST(PartialSites, DamagedFilesGiveWhatTheyHold) {
    FakeFiles files;
    files.files["\\cache\\resumes.zdt"] = "http://h/\r\n 999999999\r\n-4\r\n";
    files.files["\\cache\\resume1.zdt"] = "http://h/a\r\n\\a\r\nhttp://h/b";
    files.files["\\cache\\resume2.zdt"] = "http://h/\r\n";
    const PartialSite read = ReadPartialSite(files, kCache);
    EXPECT_EQ(read.Pending.Count(), 2U);
    EXPECT_EQ(read.Visited.Count(), 0U);
    files.files.clear();
    EXPECT_EQ(ReadPartialSite(files, kCache).Pending.Count(), 0U);
}

}  // namespace
}  // namespace qv
