#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "contracts/event_loop_contract.h"
#include "platform/linux/line_channel.h"
#include "platform/linux/poll_loop.h"
#include "platform/linux/scratch_folder.h"

namespace qv {
namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Poll, EventLoopContract, PollLoop);

TEST(EventLoopTest, WhatTheSystemCannotWaitForIsAlwaysReady) {
    const ScratchFolder folder;
    const std::string path = folder.NativePath() + "/lines";
    const int file = open(path.c_str(), O_RDWR | O_CREAT, 0600);
    ASSERT_EQ(write(file, "one\ntwo\n", 8), 8);
    ASSERT_EQ(lseek(file, 0, SEEK_SET), 0);
    const int closed = dup(file);
    close(closed);
    const int nothing = open("/dev/null", O_RDONLY);
    for (const int input : {file, nothing, closed}) {
        PollLoop loop;
        std::vector<std::string> lines;
        bool ended = false;
        LineChannel channel(loop, input, 1);
        channel.Start([&](const std::string& line) { lines.push_back(line); }, [&] { ended = true; });
        while (!ended) loop.WaitFor(kWaitForever);
        EXPECT_EQ(lines.size(), input == file ? 2U : 0U);
    }
    close(file);
    close(nothing);
}

}  // namespace
}  // namespace qv
