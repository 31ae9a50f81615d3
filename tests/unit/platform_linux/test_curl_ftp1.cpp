// The FTP client against servers that take, refuse, hang and break off.
#include <gtest/gtest.h>

#include <algorithm>

#include "ftp_server.h"
#include "platform/linux/curl_ftp1.h"
#include "platform/linux/poll_loop.h"

namespace qv {
namespace {

struct Ftp : testing::Test {
    PollLoop loop;
    LastError lastError;
    CurlFtp1 ftp{loop, lastError};
    FtpServer server;
    int began = 0;
    int listed = 0;

    Ftp() {
        ftp.OnStartTransfer = [this] {
            ++began;
            ftp.SetAction(FTP1::EndSession);
        };
        ftp.OnDirList = [this] {
            ++listed;
            ftp.SetAction(FTP1::EndSession);
        };
    }
    // A whole session for one file or folder; gives the error's number.
    int Ask(const std::string& path) {
        lastError.Clear();
        began = listed = 0;
        ftp.RemoteHost = server.Host();
        ftp.RemoteFile = path;
        ftp.User = "me";
        ftp.Password = "word";
        ftp.NetworkReady = true;
        ftp.SetAction(FTP1::LogOn);
        if (lastError.LastErrorNumber == 0) ftp.SetAction(FTP1::AskForFile);
        ftp.SetAction(FTP1::Idle);
        return lastError.LastErrorNumber;
    }
    bool Told(const std::string& command) {
        const auto commands = server.Commands();
        return std::find(commands.begin(), commands.end(), command) != commands.end();
    }
};

TEST_F(Ftp, ASessionEndsWithTheFirstSignOfTheFile) {
    EXPECT_EQ(Ask("/pub/a.txt"), 0) << lastError.LastErrorText;
    EXPECT_EQ(began, 1);
    EXPECT_EQ(listed, 0);
    EXPECT_TRUE(Told("USER me") && Told("PASS word") && Told("RETR pub/a.txt"));
    server.Forget();
    EXPECT_EQ(Ask("/pub/"), 0);
    EXPECT_EQ(listed, 1);
    EXPECT_TRUE(Told("LIST"));
}

TEST_F(Ftp, WhatIsNoFileIsAskedForAsAFolder) {
    server.replies["RETR"] = "550 no\r\n";
    EXPECT_EQ(Ask("/pub"), 0);
    EXPECT_EQ(listed, 1);
    EXPECT_EQ(began, 0);
}

TEST_F(Ftp, WhatIsNeitherFails) {
    server.replies["RETR"] = server.replies["CWD"] = "550 no\r\n";
    EXPECT_EQ(Ask("/pub"), kErrorOther);
    EXPECT_NE(lastError.LastErrorText, "");
    EXPECT_EQ(began + listed, 0);
}

TEST_F(Ftp, ARefusedLogOnFails) {
    server.replies["PASS"] = "530 no\r\n";
    EXPECT_EQ(Ask("/a"), kErrorOther);
    lastError.Clear();
    ftp.SetAction(FTP1::AskForFile);  // without a session
    EXPECT_NE(lastError.LastErrorNumber, 0);
}

TEST_F(Ftp, APathIsToldAsItWasMeant) {
    for (const auto& [path, told] : {std::pair{"/a b#c?d;e", "RETR a b#c?d;e"}, {"/100%/x", "RETR 100%/x"}, {"/a%20b", "RETR a b"},
                                     {"/a\r\nDELE b", "RETR aDELE b"}, {"w\xc3\xa9" "b", "RETR w\xc3\xa9" "b"}}) {
        server.Forget();
        EXPECT_EQ(Ask(path), 0) << path << lastError.LastErrorText;
        EXPECT_TRUE(Told(told)) << testing::PrintToString(server.Commands());
        EXPECT_FALSE(Told("DELE b"));
    }
}

TEST_F(Ftp, ASessionThatBreaksOffAtAnyByteFailsUnlessTheTransferHasBegun) {
    ASSERT_EQ(Ask("/a.txt"), 0);
    const std::size_t sign = server.Said().find("150 ");
    ASSERT_NE(sign, std::string::npos);
    const std::size_t whole = server.Said().find("\r\n", sign) + 2;
    for (std::size_t cut = 0; cut <= whole; ++cut) {
        server.CutAfter(cut);
        const int error = Ask("/a.txt");
        EXPECT_TRUE(cut >= sign || error != 0) << cut;
        EXPECT_TRUE(cut < whole || error == 0) << lastError.LastErrorText;
        EXPECT_EQ(began, error == 0 ? 1 : 0) << cut;
    }
    server.CutAfter(std::string::npos);
    EXPECT_EQ(Ask("/a.txt"), 0);
}

TEST_F(Ftp, AServerThatFallsSilentIsGivenUp) {
    ASSERT_EQ(Ask("/a.txt"), 0);
    const std::string said = server.Said();
    ftp.Timeout = -14.8;  // it waits fifteen seconds more than it is told
    for (const char* at : {"220", "331", "230", "229", "150"}) {
        server.CutAfter(said.find(at), true);
        EXPECT_EQ(Ask("/a.txt"), kErrorTimedOut) << at;
        EXPECT_EQ(lastError.LastErrorText, "Operation timed out");
        EXPECT_EQ(began, 0);
    }
}

TEST_F(Ftp, ASessionThatIsBrokenOffFromOutsideSaysSo) {
    server.CutAfter(10, true);
    loop.StartTimer(std::chrono::milliseconds{50}, false, [this] { ftp.SetAction(FTP1::EndSession); });
    EXPECT_EQ(Ask("/a.txt"), kErrorInterrupted);
    EXPECT_EQ(lastError.LastErrorText, "interrupted");
    server.CutAfter(std::string::npos);
    EXPECT_EQ(Ask("/a.txt"), 0);
}

TEST_F(Ftp, IdleEndsTheSessionWithWhatRunsInIt) {
    server.CutAfter(10, true);
    loop.StartTimer(std::chrono::milliseconds{50}, false, [this] { ftp.SetAction(FTP1::Idle); });
    EXPECT_EQ(Ask("/a.txt"), kErrorInterrupted);
    server.CutAfter(std::string::npos);
    EXPECT_EQ(Ask("/a.txt"), 0);
}

TEST_F(Ftp, AStepWhileOneRunsIsPassedOver) {
    server.CutAfter(10, true);
    loop.StartTimer(std::chrono::milliseconds{50}, false, [this] {
        ftp.SetAction(FTP1::LogOn);
        ftp.SetAction(FTP1::EndSession);
    });
    EXPECT_EQ(Ask("/a.txt"), kErrorInterrupted);
}

}  // namespace
}  // namespace qv
