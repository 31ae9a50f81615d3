#include <gtest/gtest.h>
#include <netdb.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>

#include "platform/linux/ini_settings_store.h"
#include "platform/linux/line_channel.h"
#include "platform/linux/poll_loop.h"
#include "platform/linux/resolver_ip_info1.h"
#include "platform/linux/scratch_folder.h"
#include "platform/linux/system_clock.h"
#include "platform/linux/system_files.h"
#include "platform/linux/system_programs.h"

namespace qv {
namespace {

struct OnDisk : testing::Test {
    ScratchFolder folder;
    SystemFiles files;
    std::string Path(const std::string& name) const { return PathText(folder.NativePath()) + "\\" + name; }
    std::string Contents(const std::string& name) const {
        std::string bytes;
        files.Read(Path(name), bytes);
        return bytes;
    }
};

TEST_F(OnDisk, AWriteReplacesTheWholeFile) {
    EXPECT_TRUE(files.Write(Path("a"), std::string("one\0two", 7)));
    EXPECT_EQ(Contents("a"), std::string("one\0two", 7));
    EXPECT_TRUE(files.Write(Path("a"), "x"));
    EXPECT_EQ(Contents("a"), "x");
    EXPECT_EQ(files.List(Path(""), "*"), std::vector<std::string>{"a"});
}

TEST_F(OnDisk, AFailingWriteLeavesNothing) {
    files.Write(Path("file"), "x");
    EXPECT_FALSE(files.Write(Path("file\\below"), "y"));
    EXPECT_FALSE(files.Write(Path("no\\folder"), "y"));
    files.MakeFolder(Path("folder"));
    EXPECT_FALSE(files.Write(Path("folder"), "y"));
    EXPECT_EQ(Contents("file"), "x");
    EXPECT_EQ(files.List(Path(""), "*"), (std::vector<std::string>{"file", "folder"}));
    EXPECT_FALSE(files.Write(Path(std::string("a\0b", 3)), "y"));
}

TEST_F(OnDisk, ReadsAreBoundedAndFailInWords) {
    files.Write(Path("a"), std::string(100, 'x'));
    std::string bytes;
    EXPECT_TRUE(files.Read(Path("a"), bytes, 10));
    EXPECT_EQ(bytes.size(), 10U);
    const FileResult missing = files.Read(Path("gone"), bytes);
    EXPECT_FALSE(missing);
    EXPECT_EQ(missing.text, "No such file or directory");
    EXPECT_FALSE(files.Read(PathText(folder.NativePath()), bytes));
    EXPECT_EQ(bytes, "");
}

TEST_F(OnDisk, NamesAreTestedWithTheirCase) {
    files.Write(Path("Name.htm"), "");
    EXPECT_TRUE(files.FileExists(Path("Name.htm")));
    EXPECT_FALSE(files.FileExists(Path("name.htm")));
    EXPECT_FALSE(files.FileExists(Path("")));
    EXPECT_EQ(files.List(Path(""), "NAME.*").size(), 1U);
}

TEST_F(OnDisk, FoldersAreMadeWithTheirParents) {
    EXPECT_TRUE(files.MakeFolder(Path("a\\b\\c\\")));
    EXPECT_TRUE(files.FolderExists(Path("a\\b\\c")));
}

TEST_F(OnDisk, AFileIsAppendedTo) {
    auto file = files.Create(Path("a"));
    ASSERT_NE(file, nullptr);
    file->Append("one ");
    file->Append("two");
    EXPECT_EQ(file->Length(), 7);
    file.reset();
    EXPECT_EQ(Contents("a"), "one two");
    EXPECT_EQ(files.Create(Path("no\\such")), nullptr);
}

TEST_F(OnDisk, AFileThatIsBegunAnewKeepsNothingOfTheOld) {
    files.Write(Path("a"), "something longer");
    files.Create(Path("a"))->Append("new");
    EXPECT_EQ(Contents("a"), "new");
    files.Create(Path("a")).reset();
    EXPECT_EQ(Contents("a"), "");
}

TEST_F(OnDisk, AFileIsWrittenOverInPlace) {
    struct stat before {};
    struct stat after {};
    ASSERT_TRUE(files.WriteOver(Path("a"), "00009"));
    ASSERT_EQ(stat(NativePath(Path("a")).c_str(), &before), 0);
    EXPECT_EQ(before.st_mode & 0777, 0600U);
    ASSERT_TRUE(files.WriteOver(Path("a"), "00010"));
    EXPECT_EQ(Contents("a"), "00010");
    ASSERT_TRUE(files.WriteOver(Path("a"), "2"));
    EXPECT_EQ(Contents("a"), "20010");
    ASSERT_EQ(stat(NativePath(Path("a")).c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino);
    EXPECT_EQ(files.WriteOver(Path("no\\such"), "x").text, "No such file or directory");
    EXPECT_FALSE(files.WriteOver(Path(std::string("a\0b", 3)), "x"));
}

TEST_F(OnDisk, SettingsKeepOtherLines) {
    IniSettingsStore store(files, Path("conf\\q.ini"));
    EXPECT_EQ(store.Get("Options", "Current Tip", "1"), "1");
    files.MakeFolder(Path("conf"));
    files.Write(Path("conf\\q.ini"), "; mine\n[Other]\nCurrent Tip=9\n[Options]\nShow Tips at Startup = 0\n\n[Last]\nx=y\n");
    EXPECT_EQ(store.Get("Options", "Show Tips at Startup", "1"), "0");
    store.Save("Options", "Current Tip", "4");
    store.Save("Options", "Show Tips at Startup", "1");
    EXPECT_EQ(Contents("conf\\q.ini"),
              "; mine\n[Other]\nCurrent Tip=9\n[Options]\nShow Tips at Startup=1\nCurrent Tip=4\n\n[Last]\nx=y\n");
    store.Save("New", "k", "v");
    EXPECT_EQ(store.Get("New", "k", ""), "v");
}

TEST_F(OnDisk, AnAppFolderIsFilledOnlyWhenItIsNew) {
    files.MakeFolder(Path("shipped\\help"));
    files.Write(Path("shipped\\tips"), "t");
    files.Write(Path("shipped\\help\\a"), "h");
    PrepareAppFolder(files, Path("home\\"), Path("shipped\\"));
    EXPECT_EQ(Contents("home\\help\\a"), "h");
    files.Remove(Path("home\\tips"));
    PrepareAppFolder(files, Path("home\\"), Path("shipped\\"));
    EXPECT_FALSE(files.FileExists(Path("home\\tips")));
}

TEST_F(OnDisk, ProgramsAreStartedWithoutAShell) {
    const std::string script = folder.NativePath() + "/tool";
    std::ofstream(script) << "#!/bin/sh\nprintf '%s' \"$1\" > \"$0.part\"; mv \"$0.part\" \"$0.out\"\n";
    std::filesystem::permissions(script, std::filesystem::perms::owner_all);
    SystemPrograms programs(files);
    EXPECT_TRUE(programs.Exists(PathText(script)));
    EXPECT_FALSE(programs.Exists(Path("none")));
    EXPECT_FALSE(programs.Exists(""));
    EXPECT_FALSE(programs.Start(Path("none"), {}));
    ASSERT_TRUE(programs.Start(PathText(script), {"a b; $(x)"}));
    PollLoop loop;
    for (int i = 0; i < 500 && !files.FileExists(Path("tool.out")); ++i) loop.WaitFor(0.01);
    EXPECT_EQ(Contents("tool.out"), "a b; $(x)");
}

TEST(PollLoopTest, RunsTimersInOrderAndStopsThem) {
    PollLoop loop;
    std::string order;
    loop.StartTimer(std::chrono::milliseconds{20}, false, [&] { order += "b"; });
    loop.StartTimer(std::chrono::milliseconds{5}, false, [&] { order += "a"; });
    const auto never = loop.StartTimer(std::chrono::milliseconds{1}, false, [&] { order += "x"; });
    loop.StopTimer(never);
    while (order.size() < 2) loop.WaitFor(1);
    EXPECT_EQ(order, "ab");
}

TEST(PollLoopTest, RepeatsUntilStopped) {
    PollLoop loop;
    int ticks = 0;
    EventLoop::TimerId timer = 0;
    timer = loop.StartTimer(std::chrono::milliseconds{1}, true, [&] {
        if (++ticks == 3) loop.StopTimer(timer);
    });
    while (ticks < 3) loop.WaitFor(1);
    loop.WaitFor(0.02);
    EXPECT_EQ(ticks, 3);
}

TEST(PollLoopTest, IsWokenFromAnotherThread) {
    PollLoop loop;
    std::atomic<bool> done{false};
    std::thread other([&] { loop.Post([&] { done = true; }); });
    while (!done) loop.WaitFor(kWaitForever);
    other.join();
}

TEST(PollLoopTest, NestedTurnsGoOnWithPostedWork) {
    PollLoop loop;
    std::string order;
    loop.Post([&] {
        while (order != "b") loop.WaitFor(1);
        order += "a";
    });
    loop.Post([&] { order += "b"; });
    while (order.size() < 2) loop.WaitFor(1);
    EXPECT_EQ(order, "ba");
}

TEST(PollLoopTest, TurnsCanBeNestedAndWatchesEndInside) {
    PollLoop loop;
    int pipes[2];
    ASSERT_EQ(pipe(pipes), 0);
    int calls = 0;
    loop.Watch(pipes[0], true, false, [&](bool, bool) {
        ++calls;
        loop.Unwatch(pipes[0]);
        loop.Yield();
    });
    ASSERT_EQ(write(pipes[1], "x", 1), 1);
    loop.WaitFor(1);
    loop.WaitFor(0.01);
    EXPECT_EQ(calls, 1);
    close(pipes[0]);
    close(pipes[1]);
}

TEST(LineChannelTest, HandsOutLinesThatCameTogetherAlsoInsideAHandler) {
    PollLoop loop;
    int in[2];
    int out[2];
    ASSERT_EQ(pipe(in), 0);
    ASSERT_EQ(pipe(out), 0);
    std::vector<std::string> lines;
    bool ended = false;
    {
        LineChannel channel(loop, in[0], out[1]);
        channel.Start(
            [&](const std::string& line) {
                lines.push_back(line);
                while (line == "one" && lines.size() < 3) loop.WaitFor(1);
            },
            [&] { ended = true; });
        ASSERT_EQ(write(in[1], "one\ntwo\nthree\nfo", 16), 16);
        while (lines.size() < 3) loop.WaitFor(1);
        ASSERT_EQ(write(in[1], "ur\n", 3), 3);
        while (lines.size() < 4) loop.WaitFor(1);
        close(in[1]);
        while (!ended) loop.WaitFor(1);
        channel.Write("reply");
    }
    EXPECT_EQ(lines, (std::vector<std::string>{"one", "two", "three", "four"}));
    char bytes[16] = {};
    EXPECT_EQ(read(out[0], bytes, sizeof bytes), 6);
    EXPECT_STREQ(bytes, "reply\n");
    close(in[0]);
    close(out[0]);
    close(out[1]);
}

// So that a window that a line closes is gone before the next line is looked at.
TEST(LineChannelTest, HandsOutOneLineATurnAndTheEndBehindTheLast) {
    PollLoop loop;
    int in[2];
    ASSERT_EQ(pipe(in), 0);
    std::vector<std::string> log;
    LineChannel channel(loop, in[0], in[0]);
    channel.Start([&](const std::string& line) { log.push_back(line); }, [&] { log.push_back("end"); });
    ASSERT_EQ(write(in[1], "a\nb\n\nc\nrest", 11), 11);
    close(in[1]);
    for (std::size_t turn = 1; turn <= 4; ++turn) {
        loop.WaitFor(1);
        EXPECT_EQ(log.size(), turn);
    }
    loop.WaitFor(1);
    EXPECT_EQ(log, (std::vector<std::string>{"a", "b", "", "c", "end"}));
    close(in[0]);
}

struct Lookups : testing::Test {
    PollLoop loop;
    LastError error;
    std::vector<int> statuses;
    void Run(ResolverIpInfo1& info, const std::string& name) {
        info.OnRequestComplete = [this](int, int status, const std::string&) { statuses.push_back(status); };
        info.SetHostName(name);
        EXPECT_EQ(info.HostAddress(), "Default");
        while (statuses.empty() && error.LastErrorNumber == 0) loop.WaitFor(5);
    }
};

TEST_F(Lookups, GiveAnAddress) {
    ResolverIpInfo1 info(loop, error);
    Run(info, "localhost");
    EXPECT_EQ(statuses, std::vector<int>{0});
    EXPECT_EQ(info.HostAddress(), "127.0.0.1");
}

TEST_F(Lookups, OfANameThatDoesNotExistFail) {
    for (const int code : {EAI_NONAME, EAI_NODATA}) {
        error.Clear();
        ResolverIpInfo1 info(loop, error, [code](const std::string&) { return ResolverAnswer{code, ""}; });
        Run(info, "nobody.example");
        EXPECT_EQ(error.LastErrorNumber, 25003);
        EXPECT_EQ(error.LastErrorText, "Host not found");
        EXPECT_EQ(info.HostAddress(), "");
        EXPECT_TRUE(statuses.empty());
    }
}

TEST_F(Lookups, ThatCannotBeMadeEndWithAStatus) {
    ResolverIpInfo1 info(loop, error, [](const std::string&) { return ResolverAnswer{EAI_AGAIN, ""}; });
    Run(info, "later.example");
    EXPECT_NE(statuses.at(0), 0);
    EXPECT_EQ(info.HostAddress(), "0.0.0.0");
    EXPECT_EQ(error.LastErrorNumber, 0);
}

TEST_F(Lookups, OfImpossibleNamesAreNotMade) {
    for (const std::string& name : {std::string(), std::string("a..b"), std::string(64, 'x'), std::string("a b"),
                                    std::string("a\nb"), std::string(".a"), std::string(300, 'x')}) {
        statuses.clear();
        ResolverIpInfo1 info(loop, error, [](const std::string&) {
            ADD_FAILURE();
            return ResolverAnswer{};
        });
        Run(info, name);
        EXPECT_EQ(info.HostAddress(), "0.0.0.0") << name;
    }
    EXPECT_FALSE(IsImpossibleHostName("a.b."));
}

TEST_F(Lookups, ThatWereEndedComeToNothingAndHoldNobodyUp) {
    std::atomic<bool> release{false};
    ResolverIpInfo1 info(loop, error, [&](const std::string& name) {
        while (name == "stuck" && !release) std::this_thread::yield();
        return ResolverAnswer{0, name == "stuck" ? "9.9.9.9" : "1.2.3.4"};
    });
    info.SetHostName("stuck");
    loop.WaitFor(0.02);
    info.SetLookupAction(0);
    Run(info, "free");
    EXPECT_EQ(info.HostAddress(), "1.2.3.4");
    release = true;
    loop.WaitFor(0.02);
    EXPECT_EQ(info.HostAddress(), "1.2.3.4");
    EXPECT_EQ(statuses.size(), 1U);
}

TEST(SystemClockTest, AgreesWithTheLocalTime) {
    const SystemClock clock;
    const std::tm before = clock.LocalTime();
    const double seconds = clock.SecondsSinceMidnight();
    const long expected = before.tm_hour * 3600L + before.tm_min * 60L + before.tm_sec;
    const long difference = (static_cast<long>(seconds) - expected + 86400) % 86400;
    EXPECT_LE(difference, 2);
}

}  // namespace
}  // namespace qv
