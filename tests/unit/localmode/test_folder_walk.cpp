#include <gtest/gtest.h>

#include "fakes/fake_files.h"
#include "localmode/folder_walk.h"

namespace qv {
namespace {

using Texts = std::vector<std::string>;

struct FolderWalkTest : testing::Test {
    FakeFiles files;
    FolderWalk walk{files, {"http://h/site/", "\\w\\"}};
    AddressList found;
    int asked = 0;
    int haltAt = 1000;
    int errors = 0;

    void SetUp() override {
        walk.IsIgnored = [](const std::string& url) { return url.find(".txt") != std::string::npos; };
        walk.Halted = [this] { return ++asked > haltAt; };
        walk.CouldNotRead = [this] { ++errors; };
        for (const char* path : {"\\w\\b.htm", "\\w\\a.htm", "\\w\\none", "\\w\\x.txt", "\\w\\sub\\c.htm", "\\w\\sub\\deep\\d.htm",
                                 "\\w\\zoo\\e.htm", "\\w\\v1.2\\f.htm"})
            files.files[path] = "";
    }
    Texts Urls(bool recursive) {
        walk.GetFolderFiles("\\w", recursive, found);
        Texts urls;
        for (std::size_t i = 0; i < found.Count(); ++i) urls.push_back(found.Url(i));
        return urls;
    }
};

TEST_F(FolderWalkTest, TheFilesOfOneFolderComeByName) {
    EXPECT_EQ(Urls(false), (Texts{"http://h/site/a.htm", "http://h/site/b.htm", "http://h/site/none"}));
    EXPECT_EQ(found.Path(0), "\\w\\a.htm");
}

TEST_F(FolderWalkTest, FilesComeBeforeFoldersAndFoldersDepthFirst) {
    EXPECT_EQ(Urls(true), (Texts{"http://h/site/a.htm", "http://h/site/b.htm", "http://h/site/none", "http://h/site/sub/c.htm",
                                 "http://h/site/sub/deep/d.htm", "http://h/site/zoo/e.htm"}));
    EXPECT_EQ(found.Path(4), "\\w\\sub\\deep\\d.htm");
}

TEST_F(FolderWalkTest, FoldersInACircleEnd) {
    files.files["\\w\\sub\\again\\g.htm"] = "";
    files.sameFolder["\\w\\sub\\again"] = "\\w\\sub";
    EXPECT_EQ(Urls(true).size(), 6U);
}

TEST_F(FolderWalkTest, AFolderThatCannotBeReadIsToldAndLeftOut) {
    files.unreadable.insert("\\w\\sub");
    EXPECT_EQ(Urls(true), (Texts{"http://h/site/a.htm", "http://h/site/b.htm", "http://h/site/none", "http://h/site/zoo/e.htm"}));
    EXPECT_EQ(errors, 1);
}

TEST_F(FolderWalkTest, AHaltEndsIt) {
    haltAt = 1;
    EXPECT_EQ(Urls(true), Texts{"http://h/site/a.htm"});
}

}  // namespace
}  // namespace qv
