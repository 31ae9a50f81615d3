// The mail client against servers that take, refuse, hang and break off.
#include <gtest/gtest.h>

#include <algorithm>

#include "mail_server.h"
#include "platform/linux/curl_smtp1.h"
#include "platform/linux/poll_loop.h"
#include "platform/linux/scratch_folder.h"
#include "platform/linux/system_files.h"

namespace qv {
namespace {

using Fault = MailServer::Fault;

struct Smtp : testing::Test {
    PollLoop loop;
    SystemFiles files;
    ScratchFolder scratch;
    CurlSmtp1 smtp{loop};
    const std::string body = PathText(scratch.NativePath()) + "\\body";

    void Fill(const std::string& server, const std::string& contents = "--b\r\n.dots\r\n..\r\nlast\r\n") {
        files.Write(body, contents);
        smtp.SetAction(SMTP1::Reset);
        smtp.NetworkReady = true;
        smtp.MailServer = server;
        smtp.From = "Web Author <me@h.test>";
        smtp.SendTo = "<you@h.test>";
        smtp.Subject = "A subject";
        smtp.OtherHeaders = "MIME-Version: 1.0\r\n";
        smtp.MessageText = "\r\n";
        smtp.MessageFile = body;
    }
    static bool Has(const std::vector<std::string>& lines, const std::string& line) {
        return std::find(lines.begin(), lines.end(), line) != lines.end();
    }
};

TEST_F(Smtp, SendsTheMessageAndLeaves) {
    MailServer server("", Fault::None);
    Fill(server.Name());
    smtp.Cc = "c@h.test,,d@h.test";
    smtp.BCc = "blind@h.test";
    EXPECT_EQ(smtp.SetAction(SMTP1::Send), "");
    EXPECT_TRUE(server.Closed());
    const auto lines = server.Lines();
    ASSERT_GE(lines.size(), 2u);
    EXPECT_EQ(lines[1].substr(0, 21), "MAIL FROM:<me@h.test>");
    for (const char* line : {"RCPT TO:<you@h.test>", "RCPT TO:<c@h.test>", "RCPT TO:<d@h.test>", "RCPT TO:<blind@h.test>", "QUIT"})
        EXPECT_TRUE(Has(lines, line)) << line;
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(), [](const auto& line) { return line.substr(0, 4) == "RCPT"; }), 4);
    const std::string message = server.Message();
    EXPECT_EQ(message.substr(0, message.find("Date: ")),
              "From: Web Author <me@h.test>\r\nTo: <you@h.test>\r\nCc: c@h.test,\r\n d@h.test\r\nSubject: A subject\r\n");
    EXPECT_EQ(message.substr(message.find("MIME-Version")), "MIME-Version: 1.0\r\n\r\n\r\n--b\r\n.dots\r\n..\r\nlast\r\n");
    EXPECT_EQ(message.find("blind"), std::string::npos);
}

TEST_F(Smtp, LogsInByTheThreeLines) {
    MailServer server("", Fault::None, "250-AUTH PLAIN LOGIN\r\n");
    Fill(server.Name());
    for (const char* line : {"AUTH LOGIN", "d2ViIGF1dGhvcg==", "czNjcmV0"}) smtp.Command(line);
    EXPECT_EQ(smtp.SetAction(SMTP1::Send), "");
    const auto lines = server.Lines();
    ASSERT_GE(lines.size(), 4u);
    EXPECT_EQ(lines[1], "AUTH LOGIN");
    EXPECT_EQ(lines[2], "d2ViIGF1dGhvcg==");
    EXPECT_EQ(lines[3], "czNjcmV0");
    MailServer next("", Fault::None, "250-AUTH PLAIN LOGIN\r\n");
    Fill(next.Name());  // the log-in went with the message before
    EXPECT_EQ(smtp.SetAction(SMTP1::Send), "");
    EXPECT_FALSE(Has(next.Lines(), "AUTH LOGIN"));
}

TEST_F(Smtp, AConversationThatBreaksOffAtAnyByteIsNoMail) {
    MailServer server("", Fault::None, "250-AUTH LOGIN\r\n");
    Fill(server.Name());
    server.CutAfter(std::string::npos);
    ASSERT_EQ(smtp.SetAction(SMTP1::Send), "");
    ASSERT_TRUE(server.Closed());
    const std::size_t taken = server.Said() - std::string_view("221 bye\r\n").size();
    for (std::size_t cut = 0; cut < taken; ++cut) {
        server.CutAfter(cut);
        Fill(server.Name());
        EXPECT_NE(smtp.SetAction(SMTP1::Send), "") << cut;
    }
    server.CutAfter(std::string::npos);
    Fill(server.Name());
    EXPECT_EQ(smtp.SetAction(SMTP1::Send), "");
}

std::string FaultName(Fault fault) { return fault == Fault::Refuse ? "Refuses" : fault == Fault::Hang ? "Hangs" : "Breaks"; }

struct Step {
    const char* step;
    Fault fault;
};
struct EachStep : Smtp, testing::WithParamInterface<Step> {};

// Whatever happens where: a text, a closed connection, events handled meanwhile, and a client that can send again.
TEST_P(EachStep, AFailureIsToldAndTheNextMailGoesOut) {
    std::string error;
    int turns = 0;
    {
        MailServer server(GetParam().step, GetParam().fault, "250-AUTH LOGIN\r\n");
        Fill(server.Name(), std::string(200000, 'x') + "\r\n");
        for (const char* line : {"AUTH LOGIN", "bg==", "cA=="}) smtp.Command(line);
        smtp.Timeout = 0.3;
        const auto timer = loop.StartTimer(std::chrono::milliseconds{10}, true, [&] { ++turns; });
        error = smtp.SetAction(SMTP1::Send);
        loop.StopTimer(timer);
        EXPECT_TRUE(server.Closed());
    }
    EXPECT_NE(error, "");
    EXPECT_EQ(error.find('\n'), std::string::npos);
    if (GetParam().fault == Fault::Hang) {
        EXPECT_EQ(error.substr(0, 30), "The mail server doesn't answer");
        EXPECT_GT(turns, 5);
    }
    if (GetParam().fault == Fault::Refuse) {
        EXPECT_NE(error.find("550 5.7.1 not for you"), std::string::npos) << error;
    }
    MailServer server("", Fault::None);
    Fill(server.Name());
    smtp.Timeout = 20;
    EXPECT_EQ(smtp.SetAction(SMTP1::Send), "");
    EXPECT_NE(server.Message(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Smtp, EachStep,
    testing::Values(Step{"greeting", Fault::Refuse}, Step{"greeting", Fault::Hang}, Step{"greeting", Fault::Break},
                    Step{"EHLO", Fault::Hang}, Step{"EHLO", Fault::Break}, Step{"AUTH", Fault::Refuse}, Step{"AUTH", Fault::Hang},
                    Step{"AUTH", Fault::Break}, Step{"MAIL", Fault::Refuse}, Step{"MAIL", Fault::Hang}, Step{"MAIL", Fault::Break},
                    Step{"RCPT", Fault::Refuse}, Step{"RCPT", Fault::Hang}, Step{"RCPT", Fault::Break}, Step{"DATA", Fault::Refuse},
                    Step{"DATA", Fault::Hang}, Step{"DATA", Fault::Break}, Step{"piece", Fault::Break},
                    Step{"message", Fault::Refuse}, Step{"message", Fault::Hang}, Step{"message", Fault::Break}),
    [](const auto& step) { return step.param.step + FaultName(step.param.fault); });

// The message is taken by then: how the server takes the leave doesn't matter, and nobody waits for it.
TEST_F(Smtp, ALeaveThatIsNotAnsweredIsNoFailure) {
    for (const Fault fault : {Fault::Hang, Fault::Break, Fault::Refuse}) {
        MailServer server("QUIT", fault);
        Fill(server.Name());
        EXPECT_EQ(smtp.SetAction(SMTP1::Send), "");
        EXPECT_TRUE(server.Closed());
    }
}

TEST_F(Smtp, ARefusalAndASilentLeaveDoNotHoldTheProgram) {
    MailServer server("RCPT", Fault::Refuse);
    Fill(server.Name());
    smtp.Timeout = 1e6;
    EXPECT_NE(smtp.SetAction(SMTP1::Send), "");
}

TEST_F(Smtp, ASecondSendMeanwhileFailsAndTheFirstGoesOn) {
    std::string second;
    for (int tries = 0; tries < 100 && second.empty(); ++tries) {
        MailServer server("", Fault::None);
        Fill(server.Name());
        bool through = false;
        loop.Post([&] {
            if (through) return;
            smtp.SetAction(SMTP1::Reset);  // passed over too
            second = smtp.SetAction(SMTP1::Send);
        });
        EXPECT_EQ(smtp.SetAction(SMTP1::Send), "");
        EXPECT_NE(server.Message().find("A subject"), std::string::npos);
        through = true;  // a mail may be through before the loop has turned once: then the next one is tried
        loop.Yield();
    }
    EXPECT_EQ(second, "A mail is being sent");
}

TEST_F(Smtp, ASendCanBeBrokenOff) {
    MailServer server("MAIL", Fault::Hang);
    Fill(server.Name());
    loop.StartTimer(std::chrono::milliseconds{50}, false, [&] { smtp.SetAction(SMTP1::Disconnect); });
    EXPECT_EQ(smtp.SetAction(SMTP1::Send), "interrupted");
    EXPECT_TRUE(server.Closed());
    EXPECT_EQ(smtp.SetAction(SMTP1::Idle), "");
}

TEST_F(Smtp, WhatIsNoServerOrNoFileIsSaid) {
    Fill("");
    EXPECT_NE(smtp.SetAction(SMTP1::Send), "");
    Fill("127.0.0.1:99999");
    EXPECT_NE(smtp.SetAction(SMTP1::Send).find("99999"), std::string::npos);
    MailServer server("", Fault::None);
    Fill(server.Name());
    smtp.MessageFile = body + ".gone";
    EXPECT_NE(smtp.SetAction(SMTP1::Send).find("No such file or directory"), std::string::npos);
    EXPECT_TRUE(server.Lines().empty());
}

TEST_F(Smtp, ARefusedConnectionIsSaid) {
    const int holder = BindToLoopback();
    Fill("127.0.0.1:" + std::to_string(BoundPort(holder)));
    const std::string error = smtp.SetAction(SMTP1::Send);
    EXPECT_NE(error.find("127.0.0.1"), std::string::npos) << error;
    close(holder);
}

TEST_F(Smtp, LineBreaksAddNoRecipientAndNoHeader) {
    MailServer server("", Fault::None);
    Fill(server.Name());
    smtp.SendTo = "<you@h.test>\r\nRCPT TO:<evil@h.test>>";
    smtp.Cc = "c@h.test\r\nBcc: evil@h.test,d@h.test";
    smtp.BCc = "e@h.test\nevil@h.test";
    smtp.Subject = "A\r\nX-Evil: subject\nX-Evil: too";
    smtp.From = "Na\r\nX-Evil: me <me@h.test>";
    EXPECT_EQ(smtp.SetAction(SMTP1::Send), "");
    for (const auto& line : server.Lines()) EXPECT_EQ(line.find("evil"), std::string::npos) << line;
    EXPECT_EQ(server.Message().find("\r\nX-Evil"), std::string::npos);
    EXPECT_EQ(server.Message().find("\r\nBcc"), std::string::npos);
}

}  // namespace
}  // namespace qv
