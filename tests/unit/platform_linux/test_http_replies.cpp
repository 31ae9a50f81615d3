#include "platform_linux/http_fixture.h"

namespace qv {
namespace {

TEST_F(HttpExchanges, EventsComeInTheOrderOfTheReply) {
    ScriptedServer server(Always("HTTP/1.1 200 Fine\r\nA: b \r\nContent-Length: 3\r\n\r\nxyz"));
    Open(server.Url("/"));
    EXPECT_EQ(told, (Told{"connected", "A: b", "Content-Length: 3", ": ", "start", "end"}));
    EXPECT_EQ(body, "xyz");
    EXPECT_EQ(bytesTold, 3);
    ExpectSuccess("HTTP/1.1 200 Fine");
}

TEST_F(HttpExchanges, AnEmptyBodyDoesNotStart) {
    ScriptedServer server(Always(kEmptyReply));
    Open(server.Url("/"));
    EXPECT_EQ(told, (Told{"connected", "Content-Length: 0", ": ", "end"}));
    ExpectSuccess("HTTP/1.1 200 OK");
}

TEST_F(HttpExchanges, AReplyOfPiecesIsPutTogether) {
    ScriptedServer server([](Connection& c) {
        c.ReadRequest();
        for (const char byte : std::string("HTTP/1.1 200 OK\r\nX: y\r\nContent-Length: 3\r\n\r\nabc"))
            c.Send(std::string(1, byte));
        c.ReadRequest();
    });
    Open(server.Url("/"));
    EXPECT_EQ(told, (Told{"connected", "X: y", "Content-Length: 3", ": ", "start", "end"}));
    EXPECT_EQ(body, "abc");
}

TEST_F(HttpExchanges, AChunkedBodyIsPutTogetherAndItsTrailersStayOut) {
    ScriptedServer server(
        Always("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n2;x=y\r\nde\r\n0\r\nT: u\r\n\r\n"));
    Open(server.Url("/"));
    Open(server.Url("/"));
    EXPECT_EQ(body, "abcde");
    EXPECT_EQ(told, (Told{"connected", "Transfer-Encoding: chunked", ": ", "start", "end"}));
    EXPECT_EQ(server.Connections(), 1);
}

TEST_F(HttpExchanges, ABodyMayEndWithItsConnection) {
    ScriptedServer server(Once("HTTP/1.0 200 OK\r\n\r\nall of it"));
    Open(server.Url("/"));
    ExpectSuccess("HTTP/1.0 200 OK");
    EXPECT_EQ(body, "all of it");
}

TEST_F(HttpExchanges, HeadsThatOnlyAnnounceAreDropped) {
    ScriptedServer server(
        Always("HTTP/1.1 100 Continue\r\nA: 1\r\n\r\nHTTP/1.1 103 Early\r\nLink: x\r\n\r\nHTTP/1.1 204 Done\r\nB: 2\r\n\r\n"));
    Open(server.Url("/"));
    EXPECT_EQ(told, (Told{"connected", "B: 2", ": ", "end"}));
    ExpectSuccess("HTTP/1.1 204 Done");
}

TEST_F(HttpExchanges, ASwitchOfProtocolsIsAReply) {
    ScriptedServer server(Once("HTTP/1.1 101 Other\r\nUpgrade: x\r\n\r\n"));
    ProbeByGet(server.Url("/"));
    EXPECT_EQ(error.LastErrorNumber, 101);
    EXPECT_EQ(error.LastErrorText, "101 Other");
}

struct Refusal {
    std::string statusLine;
    int number;
    std::string text;
};

TEST_F(HttpExchanges, ARefusalLeavesItsCodeAndReason) {
    const std::vector<Refusal> refusals = {{"HTTP/1.1 404 Not Found", 404, "404 Not Found"},
                                           {"HTTP/1.1 500 Internal Server Error", 500, "500 Internal Server Error"},
                                           {"HTTP/1.1 410", 410, "410"},
                                           {"HTTP/1.1 503 ", 503, "503"},
                                           {"HTTP/1.1 301 Moved  away", 301, "301 Moved  away"},
                                           {"HTTP/1.0 304 Not Modified", 304, "304 Not Modified"}};
    for (const auto& refusal : refusals) {
        ScriptedServer server(Always(refusal.statusLine + "\r\nContent-Length: 0\r\n\r\n"));
        for (const auto action : {HTTP1::Get, HTTP1::Head}) {
            Ask(action, server.Url("/"), action == HTTP1::Get);
            EXPECT_EQ(error.LastErrorNumber, refusal.number);
            EXPECT_EQ(error.LastErrorText, refusal.text);
            EXPECT_EQ(http.StatusLine(), refusal.statusLine);
            EXPECT_EQ(told.back(), "end");
        }
    }
}

TEST_F(HttpExchanges, ARefusalHasABodyToo) {
    ScriptedServer server(Always("HTTP/1.1 404 Gone\r\nContent-Length: 4\r\n\r\npage"));
    Open(server.Url("/"));
    EXPECT_EQ(error.LastErrorText, "404 Gone");
    EXPECT_EQ(body, "page");
}

TEST_F(HttpExchanges, ASuccessLeavesTheLastErrorAlone) {
    ScriptedServer server(Always(kEmptyReply));
    error.Set(7, "from before");
    http.SetURL(server.Url("/"));
    http.SetAction(HTTP1::Head);
    EXPECT_EQ(error.LastErrorNumber, 7);
    EXPECT_EQ(error.LastErrorText, "from before");
}

TEST_F(HttpExchanges, ARefusedConnectionSaysSo) {
    int port = 0;
    {
        ScriptedServer server(Silent());
        port = server.Port();
    }
    Probe("http://127.0.0.1:" + std::to_string(port) + "/");
    ExpectFailure(kErrorOther, "Connection refused");
    EXPECT_EQ(told.size(), 1U);
}

TEST_F(HttpExchanges, AServerThatSendsNothingSaysSoAfterOneTry) {
    ScriptedServer server(Once(""));
    for (const auto action : {HTTP1::Get, HTTP1::Head}) {
        Ask(action, server.Url("/"), false);
        ExpectFailure(kErrorOther, "Server sent no data");
    }
    EXPECT_EQ(server.Connections(), 2);
    EXPECT_EQ(server.Requests().size(), 2U);
}

struct Break {
    std::string name;
    std::string reply;
    std::string text;
};

class BrokenReplies : public HttpExchanges, public testing::WithParamInterface<Break> {};

TEST_P(BrokenReplies, FailInOtherWords) {
    ScriptedServer server(Once(GetParam().reply));
    Open(server.Url("/"));
    ExpectFailure(kErrorOther, GetParam().text);
    Probe(server.Url("/"));
    const bool headIsWhole = GetParam().reply.find("HTTP/1.1 200") == 0 && GetParam().reply.find("\r\n\r\n") != std::string::npos;
    if (headIsWhole)
        ExpectSuccess("HTTP/1.1 200 OK");
    else
        ExpectFailure(kErrorOther, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Http, BrokenReplies,
    testing::Values(Break{"Garbage", "no reply at all\r\n\r\n", "Invalid reply"},
                    Break{"GarbageWithoutEnd", "x", "Invalid reply"},
                    Break{"Binary", std::string("\0\x01\x02\xFF", 4), "Invalid reply"},
                    Break{"Mail", "220 smtp ready\r\n", "Invalid reply"}, Break{"InTheProtocol", "HTT", "Reply broken off"},
                    Break{"InTheStatusLine", "HTTP/1.1 20", "Reply broken off"},
                    Break{"BehindTheStatusLine", "HTTP/1.1 200 OK\r\n", "Reply broken off"},
                    Break{"InAHeader", "HTTP/1.1 200 OK\r\nA: b\r\nContent-Le", "Reply broken off"},
                    Break{"BehindAnAnnouncement", "HTTP/1.1 100 Continue\r\n\r\n", "Reply broken off"},
                    Break{"InTheBody", "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nx", "Transfer broken off"},
                    Break{"InAChunk", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n9\r\nx", "Transfer broken off"}),
    [](const auto& tested) { return tested.param.name; });

TEST_F(HttpExchanges, AResetSaysSo) {
    ScriptedServer server([](Connection& c) {
        c.ReadRequest();
        if (c.number == 2) c.Send("HTTP/1.1 200 OK\r\nA: b\r\n");
        c.Reset();
    });
    for (int i = 0; i < 2; ++i) {
        Probe(server.Url("/"));
        ExpectFailure(kErrorOther, "Connection reset");
    }
}

TEST_F(HttpExchanges, ANameThatDoesNotResolveSaysSo) {
    Probe("http://nosuch.invalid/");
    ExpectFailure(kErrorOther, "Host not found");
}

TEST_F(HttpExchanges, HeadsAreBounded) {
    const std::string line = "X: " + std::string(1019, 'x') + "\r\n";
    const auto headOf = [&line](int kilobytes) {
        std::string head = "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n";
        for (int i = 0; i < kilobytes; ++i) head += line;
        return head + "\r\n";
    };
    ScriptedServer within(Always(headOf(99)));
    Probe(within.Url("/"));
    ExpectSuccess("HTTP/1.1 200 OK");
    ScriptedServer beyond(Once(headOf(101)));
    Probe(beyond.Url("/"));
    ExpectFailure(kErrorOther, "Reply too long");
    ScriptedServer announcing([](Connection& c) {
        c.ReadRequest();
        while (c.Send("HTTP/1.1 100 Continue\r\nA: b\r\n\r\n")) {
        }
    });
    Probe(announcing.Url("/"));
    ExpectFailure(kErrorOther, "Reply too long");
    ScriptedServer oneLine(Once("HTTP/1.1 200 OK\r\nX: " + std::string(3 * 1024 * 1024, 'x')));
    Probe(oneLine.Url("/"));
    EXPECT_EQ(error.LastErrorNumber, kErrorOther);
}

TEST_F(HttpExchanges, BodiesAreBounded) {
    const std::string most(kMostBodyBytes, 'b');
    const auto reply = [](const std::string& bytes) {
        return "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(bytes.size()) + "\r\n\r\n" + bytes;
    };
    ScriptedServer within(Always(reply(most)));
    Open(within.Url("/"));
    ExpectSuccess("HTTP/1.1 200 OK");
    EXPECT_EQ(body, most);
    ScriptedServer beyond(Once(reply(most + "b")));
    Open(beyond.Url("/"));
    ExpectFailure(kErrorOther, "Reply too long");
    EXPECT_LE(body.size(), most.size());
}

TEST_F(HttpExchanges, AProbeIsContentWithTheHead) {
    const std::vector<std::string> replies = {
        "HTTP/1.1 200 OK\r\nContent-Length: 900000\r\n\r\nfirst",               // long: cut at its first byte
        "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\nfirst\r\n",  // of a length that isn't told
        "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nno chunk\r\n",    // in a mess
        "HTTP/1.1 200 OK\r\n\r\nfirst"};
    for (const auto& reply : replies) {
        ScriptedServer server(Always(reply));
        ProbeByGet(server.Url("/"));
        ExpectSuccess("HTTP/1.1 200 OK");
        EXPECT_EQ(body, "");
        EXPECT_EQ(error.LastErrorText, "");
    }
    ScriptedServer refusing(Always("HTTP/1.1 404 Not Found\r\nContent-Length: 900000\r\n\r\nfirst"));
    ProbeByGet(refusing.Url("/"));
    EXPECT_EQ(error.LastErrorText, "404 Not Found");
}

TEST_F(HttpExchanges, AProbeIsContentWithTheHeadWhenTheBodyFails) {
    ScriptedServer server([](Connection& c) {
        c.ReadRequest();
        c.Send("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhalf");
        if (c.number == 1) c.Reset();
        if (c.number == 2) c.ReadRequest();  // nothing more comes: the rest isn't waited for long
    });
    for (int connection = 1; connection <= 3; ++connection) {
        ProbeByGet(server.Url("/"));
        ExpectSuccess("HTTP/1.1 200 OK");
    }
}

TEST_F(HttpExchanges, AProbeOfAShortBodyKeepsTheConnection) {
    ScriptedServer server(Always("HTTP/1.1 200 OK\r\nContent-Length: 16384\r\n\r\n" + std::string(16384, 's')));
    for (int i = 0; i < 3; ++i) ProbeByGet(server.Url("/"));
    ExpectSuccess("HTTP/1.1 200 OK");
    EXPECT_EQ(told, (Told{"connected", "Content-Length: 16384", ": ", "start", "end"}));
    EXPECT_EQ(body, "");
    EXPECT_EQ(server.Connections(), 1);
}

}  // namespace
}  // namespace qv
