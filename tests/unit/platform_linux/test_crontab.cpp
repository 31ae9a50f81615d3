// Jobs in a crontab: the text, and the scheduler over a crontab program of the test's own, which can be told to refuse.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "platform/files.h"
#include "platform/linux/crontab_scheduler.h"
#include "platform/linux/crontab_text.h"
#include "platform/linux/processes.h"

namespace qv {
namespace {

using Ids = std::vector<std::uint32_t>;

Job At(int hour, int minute, std::uint8_t days) {
    Job job;
    job.JobTime = static_cast<std::uint32_t>(1000 * (3600 * hour + 60 * minute));
    job.DaysOfWeek = days;
    return job;
}

constexpr const char* kOthers =
    "# my own table\nMAILTO=me@example.test\n\n*/5 * * * *   /bin/true  # keep   this\n\t@daily echo 'a b'\n"
    "# 1 2 * * 3 /bin/true # quorvantis-job 44\n0 5 * * 1 echo # quorvantis-job\n0 5 * * 1 echo # quorvantis-job 3x\n"
    "0 5 * * 1 echo # quorvantis-job 99999999999\n5 5 * * * printf 'caf\xe9\\%'\n";

TEST(CrontabText, TheHighestNumberThereCanBeIsTheLast) {
    Job job;
    std::uint32_t id = 7;
    const std::string full = "1 1 * * 1 true # quorvantis-job 4294967294\n";
    const std::string last = WithJob(full, job, "true", id);
    EXPECT_EQ(id, 4294967295U);
    EXPECT_EQ(JobIds(last), (std::vector<std::uint32_t>{4294967294U, 4294967295U}));
    EXPECT_EQ(WithJob(last, job, "true", id), last);
    EXPECT_EQ(id, 0U);
}

TEST(CrontabText, AJobIsALineBehindTheOthers) {
    std::uint32_t id = 0;
    EXPECT_EQ(WithJob("", At(9, 5, 1), "command", id), "5 9 * * 1 command # quorvantis-job 1\n");
    EXPECT_EQ(id, 1U);
    EXPECT_EQ(WithJob(kOthers, At(0, 0, 127), "c", id), std::string(kOthers) + "0 0 * * 1,2,3,4,5,6,7 c # quorvantis-job 1\n");
    EXPECT_EQ(WithJob("", At(23, 59, 64 + 4), "c", id), "59 23 * * 3,7 c # quorvantis-job 1\n");
}

TEST(CrontabText, AJobWithoutADayNeverComes) {
    std::uint32_t id = 0;
    EXPECT_EQ(WithJob("", At(9, 5, 0), "c", id), "5 9 30 2 * c # quorvantis-job 1\n");
}

TEST(CrontabText, TheIdIsOneMoreThanTheHighest) {
    std::uint32_t id = 0;
    WithJob("1 1 * * 1 c # quorvantis-job 7\n1 1 * * 1 c # quorvantis-job 3\n", At(1, 1, 1), "c", id);
    EXPECT_EQ(id, 8U);
}

TEST(CrontabText, ALastLineWithoutAnEndGetsOne) {
    std::uint32_t id = 0;
    EXPECT_EQ(WithJob("0 1 * * * c", At(1, 1, 1), "c", id), "0 1 * * * c\n1 1 * * 1 c # quorvantis-job 1\n");
}

TEST(CrontabText, OnlyLinesWithTheMarkAreJobs) {
    EXPECT_EQ(JobIds(kOthers), Ids{});
    EXPECT_EQ(JobIds(""), Ids{});
    EXPECT_EQ(JobIds(std::string(kOthers) + "1 1 * * 1 c # quorvantis-job 12\n  1 1 * * 1 c # x # quorvantis-job 3"), (Ids{12, 3}));
}

TEST(CrontabText, DeletionTakesItsLinesAndNoOther) {
    const std::string job = "1 1 * * 1 c # quorvantis-job ";
    const std::string text = job + "2\n" + kOthers + job + "12\n" + job + "3";
    EXPECT_EQ(WithoutJobs(text, 2, 2), kOthers + job + "12\n" + job + "3");
    EXPECT_EQ(WithoutJobs(text, 3, 12), job + "2\n" + kOthers);
    EXPECT_EQ(WithoutJobs(text, 1, 1), text);
    EXPECT_EQ(WithoutJobs(text, 44, 44), text) << "a line that is commented out is the user's";
}

TEST(CrontabText, TheCommandReachesTheShellAsItIs) {
    const auto command = CronCommand("HOME_OF_IT", "/a b/it's 100%/$HOME`x`\"/", "/opt/my \\progs/run%");
    EXPECT_EQ(command, "HOME_OF_IT='/a b/it'\\''s 100\\%/$HOME`x`\"/' '/opt/my \\progs/run\\%'");
    EXPECT_EQ(CronCommand("V", "a\nb", "p"), std::nullopt);
    EXPECT_EQ(CronCommand("V", "a", "p\r"), std::nullopt);
    EXPECT_EQ(CronCommand("V", std::string("a\0b", 3), "p"), std::nullopt);
}

// The scheduler.

struct Crontab : testing::Test {
    std::string folder;
    std::string oldPath = std::getenv("PATH");

    void SetUp() override {
        std::string name = testing::TempDir() + "quorvantis-cron-XXXXXX";
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder = name + "/";
        WriteFile("crontab", "#!/bin/sh\nhere='" + folder + R"('
[ -e "$here/gone" ] && kill -9 $$
case "$1" in
-l) printf '%s %s\n' "$LC_ALL" "$CRONTAB_NOHEADER" > "$here/asked"
    [ -e "$here/unreadable" ] && { echo "crontab: you are not allowed" >&2; exit 1; }
    [ -e "$here/table" ] || { echo "no crontab for tester" >&2; exit 1; }
    cat "$here/table" ;;
-)  [ -e "$here/refuses" ] && { echo "errors in crontab file, can't install" >&2; exit 1; }
    cat > "$here/table" ;;
esac
)");
        chmod((folder + "crontab").c_str(), 0755);
        setenv("PATH", (folder + ":" + oldPath).c_str(), 1);
    }
    void TearDown() override {
        setenv("PATH", oldPath.c_str(), 1);
        for (const char* name : {"crontab", "table", "asked", "unreadable", "refuses", "gone"}) unlink((folder + name).c_str());
        rmdir(folder.c_str());
    }
    void WriteFile(const std::string& name, const std::string& bytes) const { std::ofstream(folder + name, std::ios::binary) << bytes; }
    std::string Table() const {
        std::ostringstream text;
        std::ifstream file(folder + "table", std::ios::binary);
        if (!file.is_open()) return "(none)";
        text << file.rdbuf();
        return text.str();
    }
    std::string JobLine(int number) const {
        return "5 9 * * 1 QUORVANTIS_HOME='/data of mine/' '" + ProgramFolder() + "autocheck' # quorvantis-job " + std::to_string(number) + "\n";
    }
    CrontabScheduler scheduler{"\\data of mine\\"};
    std::uint32_t id = 77;
    Ids ids;
    std::uint32_t resume = 0;
};

TEST_F(Crontab, AddsFindsAndDeletesAJobAmongOthers) {
    WriteFile("table", kOthers);
    EXPECT_EQ(scheduler.Add("host", At(9, 5, 1), id), JobScheduler::kSuccess);
    EXPECT_EQ(id, 1U);
    EXPECT_EQ(Table(), kOthers + JobLine(1));
    EXPECT_EQ(scheduler.Add("host", At(9, 5, 1), id), JobScheduler::kSuccess);
    EXPECT_EQ(scheduler.Enumerate("host", ids, resume), JobScheduler::kSuccess);
    EXPECT_EQ(ids, (Ids{1, 2}));
    EXPECT_EQ(scheduler.Delete("host", 1, 1), JobScheduler::kSuccess);
    EXPECT_EQ(Table(), kOthers + JobLine(2));
    EXPECT_EQ(scheduler.Delete("host", 2, 2), JobScheduler::kSuccess);
    EXPECT_EQ(Table(), kOthers);
}

TEST_F(Crontab, AMissingOneIsEmpty) {
    EXPECT_EQ(scheduler.Enumerate("host", ids, resume), JobScheduler::kSuccess);
    EXPECT_EQ(scheduler.Delete("host", 1, 1), JobScheduler::kSuccess);
    EXPECT_EQ(Table(), "(none)");
    EXPECT_EQ(scheduler.Add("host", At(9, 5, 1), id), JobScheduler::kSuccess);
    EXPECT_EQ(Table(), JobLine(1));
}

TEST_F(Crontab, AnEmptyOneGetsTheJobAlone) {
    WriteFile("table", "");
    EXPECT_EQ(scheduler.Add("host", At(9, 5, 1), id), JobScheduler::kSuccess);
    EXPECT_EQ(Table(), JobLine(1));
    EXPECT_EQ(scheduler.Delete("host", 1, 1), JobScheduler::kSuccess);
    EXPECT_EQ(Table(), "");
}

TEST_F(Crontab, OneThatCantBeReadIsNeverWritten) {
    WriteFile("table", kOthers + JobLine(1));
    WriteFile("unreadable", "");
    EXPECT_NE(scheduler.Add("host", At(9, 5, 1), id), JobScheduler::kSuccess);
    EXPECT_NE(scheduler.Delete("host", 1, 1), JobScheduler::kSuccess);
    EXPECT_NE(scheduler.Enumerate("host", ids, resume), JobScheduler::kSuccess);
    EXPECT_EQ(Table(), kOthers + JobLine(1));
    EXPECT_EQ(id, 77U);
    EXPECT_TRUE(ids.empty());
}

TEST_F(Crontab, OneThatRefusesIsAFailure) {
    WriteFile("table", JobLine(1));
    WriteFile("refuses", "");
    EXPECT_NE(scheduler.Add("host", At(9, 5, 1), id), JobScheduler::kSuccess);
    EXPECT_NE(scheduler.Delete("host", 1, 1), JobScheduler::kSuccess);
    EXPECT_EQ(scheduler.Delete("host", 5, 5), JobScheduler::kSuccess) << "nothing to write";
    EXPECT_EQ(Table(), JobLine(1));
}

TEST_F(Crontab, AProgramThatBreaksOffOrIsMissingIsAFailure) {
    WriteFile("gone", "");
    EXPECT_NE(scheduler.Add("host", At(9, 5, 1), id), JobScheduler::kSuccess);
    setenv("PATH", "/nowhere", 1);
    EXPECT_NE(scheduler.Add("host", At(9, 5, 1), id), JobScheduler::kSuccess);
    EXPECT_NE(scheduler.Enumerate("host", ids, resume), JobScheduler::kSuccess);
    EXPECT_EQ(id, 77U);
}

TEST_F(Crontab, AFolderThatNoLineCanHoldIsAFailure) {
    CrontabScheduler strange("\\a\nb\\");
    EXPECT_NE(strange.Add("host", At(9, 5, 1), id), JobScheduler::kSuccess);
    EXPECT_EQ(Table(), "(none)");
}

TEST_F(Crontab, TheProgramIsAskedInEnglishAndWithoutItsHeader) {
    setenv("CRONTAB_NOHEADER", "N", 1);
    setenv("LC_ALL", "de_DE.UTF-8", 1);
    scheduler.Enumerate("host", ids, resume);
    unsetenv("CRONTAB_NOHEADER");
    unsetenv("LC_ALL");
    std::ifstream file(folder + "asked");
    std::string line;
    std::getline(file, line);
    EXPECT_EQ(line, "C Y");
}

TEST_F(Crontab, TheComputersNameIsTold) {
    std::array<char, 256> name{};
    ASSERT_EQ(gethostname(name.data(), name.size()), 0);
    EXPECT_EQ(scheduler.ComputerName(), name.data());
}

TEST(RunToEnd, GivesWhatAProgramSaysAndHowItEnded) {
    const auto done = RunToEnd("/bin/sh", {"-c", "cat; echo $WORD >&2; exit 3"}, std::string(300000, 'x'), {"WORD=told"});
    EXPECT_TRUE(done.ended);
    EXPECT_EQ(done.code, 3);
    EXPECT_EQ(done.output, std::string(300000, 'x'));
    EXPECT_EQ(done.errors, "told\n");
    EXPECT_FALSE(RunToEnd("/nowhere/x", {}, "", {}).ended);
    EXPECT_FALSE(RunToEnd("/bin/sh", {"-c", "kill -9 $$"}, "", {}).ended);
}

}  // namespace
}  // namespace qv
