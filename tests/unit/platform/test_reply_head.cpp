#include "platform/reply_head.h"

#include <gtest/gtest.h>

#include <vector>

namespace qv {
namespace {

std::vector<std::string> Take(ReplyHead& head, const std::vector<std::string>& lines) {
    std::vector<std::string> told;
    for (const auto& line : lines) {
        const ReplyHead::Line part = head.Take(line);
        if (part == ReplyHead::Line::Field) told.push_back(head.Field() + "=" + head.Value());
        if (part == ReplyHead::Line::End) told.emplace_back("end");
    }
    return told;
}

TEST(ReplyHeadTest, HandsOutTheFieldsWithoutTheBlanksAroundThem) {
    ReplyHead head;
    EXPECT_EQ(Take(head, {"HTTP/1.1 200 OK\r\n", "A:b\r\n", "B: \tx y \r\n", "C:\r\n", "D: e: f\n", "\r\n"}),
              (std::vector<std::string>{"A=b", "B=x y", "C=", "D=e: f", "end"}));
    EXPECT_TRUE(head.Complete());
    EXPECT_EQ(head.Code(), 200);
    EXPECT_EQ(head.Bytes(), 46U);
}

TEST(ReplyHeadTest, KeepsTheStatusLineAsItWasSent) {
    ReplyHead head;
    Take(head, {"HTTP/1.0 404  Not  here \r\n"});
    EXPECT_EQ(head.StatusLine(), "HTTP/1.0 404  Not  here ");
    EXPECT_EQ(head.CodeAndReason(), "404  Not  here");
    EXPECT_FALSE(head.Complete());
}

TEST(ReplyHeadTest, GivesTheCodeAloneWhenThereIsNoReason) {
    for (const char* line : {"HTTP/1.1 503\r\n", "HTTP/1.1 503 \r\n"}) {
        ReplyHead head;
        Take(head, {line});
        EXPECT_EQ(head.Code(), 503);
        EXPECT_EQ(head.CodeAndReason(), "503");
    }
}

TEST(ReplyHeadTest, HasNoCodeWhereThereIsNone) {
    for (const char* line :
         {"HTTP/1.1\r\n", "HTTP/1.1 \r\n", "HTTP/1.1 OK\r\n", "HTTP/1.1 -5\r\n", "HTTP/1.1 99999999999 x\r\n"}) {
        ReplyHead head;
        Take(head, {line, "\r\n"});
        EXPECT_EQ(head.Code(), 0) << line;
        EXPECT_TRUE(head.Complete());
    }
}

TEST(ReplyHeadTest, PassesOverRepliesThatOnlyAnnounce) {
    ReplyHead head;
    EXPECT_EQ(Take(head, {"HTTP/1.1 100 Continue\r\n", "A: 1\r\n", "\r\n", "HTTP/1.1 103 Early\r\n", "Content-Length: 5\r\n",
                          "\r\n", "HTTP/1.1 200 OK\r\n", "B: 2\r\n", "\r\n"}),
              (std::vector<std::string>{"B=2", "end"}));
    EXPECT_EQ(head.StatusLine(), "HTTP/1.1 200 OK");
    EXPECT_EQ(head.ContentLength(), -1);
}

TEST(ReplyHeadTest, EndsWithASwitchOfProtocols) {
    ReplyHead head;
    EXPECT_EQ(Take(head, {"HTTP/1.1 101 Other\r\n", "Upgrade: x\r\n", "\r\n"}), (std::vector<std::string>{"Upgrade=x", "end"}));
}

TEST(ReplyHeadTest, PassesOverWhatIsNoField) {
    ReplyHead head;
    EXPECT_EQ(Take(head, {"HTTP/1.1 200 OK\r\n", "A: 1\r\n", "  goes: on\r\n", "\tlocation: x\r\n", "no colon\r\n",
                          "HTTP/1.1: y\r\n", "\r\n", "Trailer: z\r\n", "\r\n"}),
              (std::vector<std::string>{"A=1", "HTTP/1.1=y", "end"}));
}

TEST(ReplyHeadTest, TellsTheContentLength) {
    const auto length = [](const std::string& line) {
        ReplyHead head;
        Take(head, {"HTTP/1.1 200 OK\r\n", line, "\r\n"});
        return head.ContentLength();
    };
    EXPECT_EQ(length("content-LENGTH:  17\r\n"), 17);
    EXPECT_EQ(length("Content-Length: 0\r\n"), 0);
    EXPECT_EQ(length("Content-Length: 5000000000\r\n"), 5000000000);
    EXPECT_EQ(length("Content-Length: -1\r\n"), -1);
    EXPECT_EQ(length("Content-Length: x\r\n"), -1);
    EXPECT_EQ(length("Content-Length: 99999999999999999999\r\n"), -1);
    EXPECT_EQ(length("X-Content-Length: 5\r\n"), -1);
}

}  // namespace
}  // namespace qv
