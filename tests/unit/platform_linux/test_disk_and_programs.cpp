#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <csignal>
#include <fstream>

#include "platform/linux/ini_settings_store.h"
#include "platform/linux/poll_loop.h"
#include "platform/linux/scratch_folder.h"
#include "platform/linux/system_clock.h"
#include "platform/linux/system_files.h"
#include "platform/linux/system_programs.h"

namespace qv {
namespace {

// Sets a variable of the environment for a while; null takes it out.
class Variable {
   public:
    Variable(const char* name, const char* value) : name_(name), had_(getenv(name) != nullptr), old_(had_ ? getenv(name) : "") {
        if (value != nullptr)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }
    ~Variable() {
        if (had_)
            setenv(name_.c_str(), old_.c_str(), 1);
        else
            unsetenv(name_.c_str());
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

   private:
    std::string name_;
    bool had_;
    std::string old_;
};

class Disk : public testing::Test {
   protected:
    std::string Native(const std::string& name) const { return folder.NativePath() + "/" + name; }
    std::string Path(const std::string& name) const { return PathText(Native(name)); }
    std::string Contents(const std::string& name) const {
        std::string bytes;
        files.Read(Path(name), bytes);
        return bytes;
    }
    void Script(const std::string& name, const std::string& lines) const {
        std::ofstream(Native(name)) << "#!/bin/sh\n" << lines;
        chmod(Native(name).c_str(), 0700);
    }
    bool Await(const std::string& name) {
        PollLoop loop;
        for (int i = 0; i < 3000 && !files.FileExists(Path(name)); ++i) loop.WaitFor(0.01);
        return files.FileExists(Path(name));
    }

    ScratchFolder folder;
    SystemFiles files;
};

TEST_F(Disk, AWrittenFileIsTheOwnersAlone) {
    ASSERT_TRUE(files.Write(Path("secret"), "x"));
    ASSERT_NE(files.Create(Path("body")), nullptr);
    for (const char* name : {"secret", "body"}) {
        struct stat status {};
        ASSERT_EQ(stat(Native(name).c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, 0600U);
    }
}

TEST_F(Disk, TheRightsOfOthersAreTakenFromAFile) {
    ASSERT_TRUE(files.Write(Path("secret"), "x"));
    for (const auto& [given, left] : {std::pair<mode_t, mode_t>{0644, 0600}, {0440, 0400}, {0700, 0700}}) {
        ASSERT_EQ(chmod(Native("secret").c_str(), given), 0);
        files.KeepForOwner(Path("secret"));
        struct stat status {};
        ASSERT_EQ(stat(Native("secret").c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, left);
    }
    files.MakeFolder(Path("folder"));
    chmod(Native("folder").c_str(), 0755);
    files.KeepForOwner(Path("folder"));
    files.KeepForOwner(Path("none"));
    struct stat status {};
    ASSERT_EQ(stat(Native("folder").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0755U);
}

TEST_F(Disk, BytesComeBackAsTheyWere) {
    std::string bytes;
    for (int i = 0; i < 3 * 1024 * 1024 + 7; ++i) bytes += static_cast<char>(i * 31 + (i >> 8));
    for (const std::size_t size :
         {std::size_t{0}, std::size_t{1}, std::size_t{15}, std::size_t{4095}, std::size_t{4096}, bytes.size()}) {
        ASSERT_TRUE(files.Write(Path("f"), std::string_view(bytes).substr(0, size)));
        EXPECT_EQ(files.Length(Path("f")), static_cast<std::int64_t>(size));
        EXPECT_TRUE(Contents("f") == bytes.substr(0, size)) << size;
    }
}

TEST_F(Disk, FilesWhoseLengthIsNotToldAreReadWhole) {
    std::string bytes;
    ASSERT_TRUE(files.Read("\\proc\\self\\environ", bytes));
    ASSERT_TRUE(files.Read("\\proc\\self\\maps", bytes));
    EXPECT_GT(bytes.size(), 4096U);
    EXPECT_EQ(files.Length("\\proc\\self\\maps"), 0);
}

TEST_F(Disk, ReadsStopAtTheirLimit) {
    files.Write(Path("f"), "0123456789");
    std::string bytes;
    for (const std::int64_t limit : {0, 1, 10, 11}) {
        ASSERT_TRUE(files.Read(Path("f"), bytes, limit));
        EXPECT_EQ(bytes, std::string("0123456789").substr(0, static_cast<std::size_t>(limit)));
    }
}

TEST_F(Disk, AReadThatFailsInTheMiddleGivesNothing) {
    std::string bytes = "old";
    EXPECT_EQ(files.Read("\\proc\\self\\mem", bytes).text, "Input/output error");  // it can be opened, but begins with nothing
    EXPECT_EQ(bytes, "");
}

TEST_F(Disk, FailuresComeInTheWordsOfTheSystem) {
    files.Write(Path("file"), "x");
    std::string bytes = "old";
    const FileResult folderRead = files.Read(Path(""), bytes);
    EXPECT_FALSE(folderRead);
    EXPECT_EQ(folderRead.text, "Is a directory");
    EXPECT_EQ(bytes, "");
    EXPECT_EQ(files.Read(Path("file\\x"), bytes).text, "Not a directory");
    EXPECT_EQ(files.Write(Path("file\\x"), "y").text, "Not a directory");
    EXPECT_EQ(files.Write(Path("gone\\x"), "y").text, "No such file or directory");
    EXPECT_EQ(files.Write(Path(std::string(300, 'n')), "y").text, "File name too long");
}

TEST_F(Disk, AWriteThatFailsLeavesTheOldFileAndNothingElse) {
    files.MakeFolder(Path("taken\\full"));
    files.Write(Path("file"), "old");
    EXPECT_EQ(files.Write(Path("taken"), "new").text, "Is a directory");
    EXPECT_FALSE(files.Write(Path("file\\"), "new"));
    EXPECT_FALSE(files.Write("", "new"));
    EXPECT_EQ(Contents("file"), "old");
    EXPECT_EQ(files.List(Path(""), "*"), (std::vector<std::string>{"file", "taken"}));
    EXPECT_TRUE(files.FolderExists(Path("taken\\full")));
}

TEST_F(Disk, AFullDiskLeavesTheOldFile) {
    // Bytes beyond the most that a file of this process may hold can't be written, as on a full disk.
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGXFSZ, SIG_IGN);
        const bool first = static_cast<bool>(files.Write(Path("file"), "old"));
        const rlimit small{4096, 4096};
        setrlimit(RLIMIT_FSIZE, &small);
        const FileResult second = files.Write(Path("file"), std::string(100000, 'n'));
        _exit(first && !second.ok && second.text == "File too large" ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(Contents("file"), "old");
    EXPECT_EQ(files.List(Path(""), "*"), std::vector<std::string>{"file"});
}

TEST_F(Disk, ALeftTemporaryNameIsNotInTheWay) {
    const std::string left = ".quorvantis-" + std::to_string(getpid()) + "-0";
    ASSERT_EQ(symlink(Native("victim").c_str(), Native(left).c_str()), 0);
    EXPECT_TRUE(files.Write(Path("file"), "new"));
    EXPECT_EQ(Contents("file"), "new");
    EXPECT_FALSE(files.FileExists(Path("victim")));
    EXPECT_FALSE(FitsMask(left, "*_text.*") || FitsMask(left, "*_Log.*"));
}

TEST_F(Disk, LeftoversOfProcessesThatAreGoneAreRemoved) {
    const pid_t child = fork();
    if (child == 0) _exit(0);
    waitpid(child, nullptr, 0);
    const std::string gone = ".quorvantis-" + std::to_string(child) + "-3";
    const std::string own = ".quorvantis-" + std::to_string(getpid()) + "-0";
    const std::vector<std::string> kept = {".quorvantis-" + std::to_string(getppid()) + "-0", ".quorvantis-", ".quorvantis--1-0", ".quorvantis-x-0",
                                           ".quorvantis-99999999999999-0", "file"};
    for (const auto& name : kept) files.Write(Path(name), "x");
    for (const auto& name : {gone, own}) files.Write(Path(name), "x");
    files.RemoveLeftovers(Path(""));
    for (const auto& name : kept) EXPECT_TRUE(files.FileExists(Path(name))) << name;
    EXPECT_FALSE(files.FileExists(Path(gone)) || files.FileExists(Path(own)));
    files.RemoveLeftovers(Path("nowhere"));
}

TEST_F(Disk, PathsWithANulNameNothing) {
    files.Write(Path("a"), "x");
    const std::string path = Path("a") + std::string("\0b", 2);
    std::string bytes;
    EXPECT_FALSE(files.Read(path, bytes));
    EXPECT_FALSE(files.Write(path, "y"));
    EXPECT_EQ(files.Create(path), nullptr);
    EXPECT_FALSE(files.FileExists(path) || files.FolderExists(path) || files.Remove(path) || files.MakeFolder(path));
    EXPECT_FALSE(files.Rename(path, Path("c")) || files.Rename(Path("a"), path));
    EXPECT_TRUE(files.List(path, "*").empty());
    EXPECT_EQ(files.Length(path), 0);
    EXPECT_EQ(Contents("a"), "x");
}

TEST_F(Disk, MasksListAndRemoveWithoutRegardToCase) {
    for (const char* name : {"B_TEXT.txt", "a_text.html", "c_text", "A_Log.txt"}) files.Write(Path(name), "");
    EXPECT_EQ(files.List(Path(""), "*_text.*"), (std::vector<std::string>{"B_TEXT.txt", "a_text.html"}));
    EXPECT_EQ(files.RealName(Path(""), "b_text.TXT"), "B_TEXT.txt");
    files.RemoveAll(Path(""), "*_TEXT.*");
    EXPECT_EQ(files.List(Path(""), "*"), (std::vector<std::string>{"A_Log.txt", "c_text"}));
    EXPECT_TRUE(files.List(Path("gone\\"), "*").empty());
}

TEST_F(Disk, NamesChangeAndGo) {
    files.Write(Path("a"), "1");
    files.Write(Path("b"), "2");
    EXPECT_TRUE(files.Rename(Path("a"), Path("b")));
    EXPECT_EQ(Contents("b"), "1");
    EXPECT_FALSE(files.Rename(Path("a"), Path("c")));
    EXPECT_TRUE(files.Remove(Path("b")));
    EXPECT_FALSE(files.Remove(Path("b")));
    files.MakeFolder(Path("d"));
    EXPECT_FALSE(files.Remove(Path("d")));
}

TEST_F(Disk, SettingsOutliveDamage) {
    IniSettingsStore store(files, Path("q.ini"));
    for (const std::string& damage : {std::string("\0\xFF[=\n]\r\r[[Options]]\n=\n", 22), std::string("[Options\nCurrent Tip=3"),
                                      std::string("\n\n\n"), std::string(100000, '[')}) {
        files.Write(Path("q.ini"), damage);
        EXPECT_EQ(store.Get("Options", "Current Tip", "1"), "1");
        store.Save("Options", "Current Tip", "2");
        EXPECT_EQ(store.Get("Options", "Current Tip", "1"), "2");
    }
    files.Remove(Path("q.ini"));
    files.MakeFolder(Path("q.ini"));
    store.Save("Options", "Current Tip", "2");
    EXPECT_EQ(store.Get("Options", "Current Tip", "1"), "1");
}

TEST_F(Disk, SettingsLieWhereTheEnvironmentTells) {
    {
        const Variable configured("XDG_CONFIG_HOME", "/c/onf");
        EXPECT_EQ(UserSettingsPath(), "\\c\\onf\\quorvantis\\quorvantis.ini");
    }
    const Variable configured("XDG_CONFIG_HOME", "");
    const Variable home("HOME", "/h");
    EXPECT_EQ(UserSettingsPath(), "\\h\\.config\\quorvantis\\quorvantis.ini");
}

TEST_F(Disk, TheAppFolderLiesWhereTheEnvironmentTells) {
    const Variable home("HOME", "/h");
    const Variable data("XDG_DATA_HOME", nullptr);
    const Variable own("QUORVANTIS_HOME", nullptr);
    EXPECT_EQ(FindPlaces().appPath, "\\h\\.local\\share\\quorvantis\\");
    EXPECT_EQ(FindPlaces().windowsFolder, "\\usr\\bin\\");
    const Variable otherData("XDG_DATA_HOME", "/d");
    EXPECT_EQ(FindPlaces().appPath, "\\d\\quorvantis\\");
    for (const char* value : {"/q/x", "/q/x/"}) {
        const Variable otherOwn("QUORVANTIS_HOME", value);
        EXPECT_EQ(FindPlaces().appPath, "\\q\\x\\");
    }
}

TEST_F(Disk, AMissingAppFolderIsMadeAlsoWithNothingToCopy) {
    PrepareAppFolder(files, Path("new\\deep\\"), "");
    EXPECT_TRUE(files.FolderExists(Path("new\\deep")));
    PrepareAppFolder(files, Path("other\\"), Path("no such folder\\"));
    EXPECT_TRUE(files.FolderExists(Path("other")));
}

TEST_F(Disk, AStartedProgramGetsItsWordsAndNothingElse) {
    // Writes down its words, its streams and its other open descriptors, and shows the result when it is whole.
    Script("tool",
           "out=${0%/*}/out\nfor word; do printf '<%s>' \"$word\" >>\"$out.part\"; done\n"
           "for n in 0 1 2; do printf ' %s' \"$(readlink /proc/$$/fd/$n)\" >>\"$out.part\"; done\n"
           "ls /proc/$$/fd | wc -l >>\"$out.part\"\nmv \"$out.part\" \"$out\"\n");
    const int kept = dup(1);  // must not go along
    SystemPrograms programs(files);
    ASSERT_TRUE(programs.Start(Path("tool"), {"a b", "", "$(x);'\"", "-n"}));
    close(kept);
    ASSERT_TRUE(Await("out"));
    // The shell itself holds its script open besides the three streams.
    EXPECT_EQ(Contents("out"), "<a b><><$(x);'\"><-n> /dev/null /dev/null /dev/null4\n");
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);  // nobody is left to be waited for
}

TEST_F(Disk, AProgramThatCannotBeStartedSaysSo) {
    files.Write(Path("text"), "no program");
    Script("lost", "");
    std::ofstream(Native("lost")) << "#!/no/such/shell\n";
    SystemPrograms programs(files);
    EXPECT_FALSE(programs.Start(Path("text"), {}));
    EXPECT_FALSE(programs.Start(Path("lost"), {}));
    EXPECT_FALSE(programs.Start(Path("gone"), {}));
    EXPECT_FALSE(programs.Start(Path(""), {}));
    EXPECT_FALSE(programs.Exists(Path("gone")) || programs.Exists("") || programs.Exists("   "));
}

TEST_F(Disk, TheDesktopsOpenerStandsInForTheEditor) {
    const Variable path("PATH", (":" + Native("none") + ":" + Native("bin")).c_str());
    SystemPrograms programs(files);
    const std::string editor = Path("windows\\") + "NotePad.exe";
    EXPECT_FALSE(programs.Exists(editor));
    EXPECT_FALSE(programs.OpenWithDesktop("x"));
    files.MakeFolder(Path("none\\xdg-open"));  // a folder is no program
    EXPECT_FALSE(programs.Exists(editor));
    files.MakeFolder(Path("bin"));
    Script("bin/xdg-open", "printf '%s' \"$1\" >\"$1.part\"\n/bin/mv \"$1.part\" \"$1.opened\"\n");
    EXPECT_TRUE(programs.Exists(editor));
    EXPECT_TRUE(programs.Exists(NativePath(editor)));
    EXPECT_FALSE(programs.Exists(Path("windows\\other.exe")));
    ASSERT_TRUE(programs.Start(editor, {Native("page.htm")}));
    EXPECT_TRUE(Await("page.htm.opened"));
    ASSERT_TRUE(programs.OpenWithDesktop(Native("other.htm")));
    EXPECT_TRUE(Await("other.htm.opened"));
}

TEST_F(Disk, PausesAreGivenUpOnRequestOnly) {
    for (const char* value : {"1", "0", "", "yes"}) {
        const Variable wish("QUORVANTIS_NO_PAUSES", value);
        EXPECT_EQ(SystemClock().PausesWanted(), std::string(value) != "1");
    }
    const Variable wish("QUORVANTIS_NO_PAUSES", nullptr);
    EXPECT_TRUE(SystemClock().PausesWanted());
}

TEST_F(Disk, TheClockStaysWithinTheDay) {
    for (const char* zone : {"UTC", "Pacific/Chatham", "Australia/Lord_Howe", "America/New_York", "XXX-13:59"}) {
        const Variable zoneOfTest("TZ", zone);
        tzset();
        const SystemClock clock;
        const double before = clock.SecondsSinceMidnight();
        const std::tm now = clock.LocalTime();
        const double after = clock.SecondsSinceMidnight();
        const double told = now.tm_hour * 3600 + now.tm_min * 60 + now.tm_sec;
        EXPECT_GE(before, 0);
        EXPECT_LT(after, 86400);
        if (before <= after) {  // not at midnight
            EXPECT_GE(told, std::floor(before)) << zone;
            EXPECT_LE(told, after) << zone;
        }
    }
    tzset();
}

}  // namespace
}  // namespace qv
