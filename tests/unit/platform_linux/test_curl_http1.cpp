#include "platform/linux/curl_http1.h"

#include <gtest/gtest.h>

#include "platform/linux/poll_loop.h"
#include "platform_linux/raw_server.h"

namespace qv {
namespace {

struct Client : testing::Test {
    PollLoop loop;
    LastError error;
    CurlHttp1 http{loop, error, 100000};
    std::vector<std::string> log;

    Client() {
        http.OnConnected = [this] { log.emplace_back("connected"); };
        http.OnHeader = [this](const std::string& field, const std::string& value) { log.push_back(field + ": " + value); };
        http.OnStartTransfer = [this] { log.emplace_back("start"); };
        http.OnTransfer = [this](long bytes, const std::string& text) { log.push_back(std::to_string(bytes) + " " + text); };
        http.OnEndTransfer = [this] { log.emplace_back("end"); };
        http.OnError = [this](int, const std::string& text) { log.push_back("error " + text); };
    }
    void Ask(const std::string& url, HTTP1::ActionCode action, bool keepBody) {
        error.Clear();
        http.SetURL(url);
        http.OtherHeaders = "Host: h:1\r\nAccept: */*\r\n";
        http.KeepBody = keepBody;
        http.SetAction(action);
    }
    static RawServer::Answer Always(const std::string& reply, bool keep = true) {
        return [=](const std::string&, int socket) { return RawServer::Send(socket, reply) && keep; };
    }
};

TEST_F(Client, SendsJustWhatItWasTold) {
    RawServer server(Always("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n"));
    Ask(server.Url("/a?b#c"), HTTP1::Get, true);
    http.User = "u";
    http.Password = "p";
    Ask(server.Url("/d/../e"), HTTP1::Head, false);
    const std::vector<std::string> expected = {
        "GET /a?b HTTP/1.1\r\nHost: h:1\r\nAccept: */*\r\n\r\n",
        "HEAD /d/../e HTTP/1.1\r\nHost: h:1\r\nAccept: */*\r\nAuthorization: Basic dTpw\r\n\r\n"};
    EXPECT_EQ(server.Requests(), expected);
    EXPECT_EQ(server.Connections(), 1);
}

TEST_F(Client, AsksAProxyForTheWholeAddress) {
    RawServer server(Always("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n"));
    http.ProxyServer = "127.0.0.1";
    http.ProxyPort = server.port;
    Ask("http://far.example:81/x y", HTTP1::Head, false);
    EXPECT_EQ(server.Requests().at(0), "HEAD http://far.example:81/x%20y HTTP/1.1\r\nHost: h:1\r\nAccept: */*\r\n\r\n");
    EXPECT_EQ(error.LastErrorNumber, 0);
}

TEST_F(Client, NoLineBreakReachesAHeader) {
    RawServer server(Always("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n"));
    http.SetURL(server.Url("/"));
    http.OtherHeaders = "Host: h\nX-Evil: 1\r\nAccept: */*\r\n";
    http.KeepBody = false;
    http.SetAction(HTTP1::Head);
    EXPECT_EQ(server.Requests().at(0), "HEAD / HTTP/1.1\r\nHost: h%0AX-Evil: 1\r\nAccept: */*\r\n\r\n");
}

TEST_F(Client, TellsWhatComesInOrder) {
    RawServer server(Always("HTTP/1.1 200 Fine\r\nA: b \r\nContent-Length: 3\r\n\r\nxyz"));
    Ask(server.Url("/"), HTTP1::Get, true);
    EXPECT_EQ(log, (std::vector<std::string>{"connected", "A: b", "Content-Length: 3", ": ", "start", "3 xyz", "end"}));
    EXPECT_EQ(http.StatusLine(), "HTTP/1.1 200 Fine");
}

TEST_F(Client, DropsTheHeadsThatOnlyAnnounce) {
    RawServer server(Always("HTTP/1.1 103 Early\r\nX: y\r\n\r\nHTTP/1.1 204 Done\r\n\r\n"));
    Ask(server.Url("/"), HTTP1::Get, true);
    EXPECT_EQ(log, (std::vector<std::string>{"connected", ": ", "end"}));
    EXPECT_EQ(http.StatusLine(), "HTTP/1.1 204 Done");
}

TEST_F(Client, TakesAReplyThatIsNo2xxAsAFailure) {
    RawServer server(Always("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n"));
    Ask(server.Url("/"), HTTP1::Head, false);
    EXPECT_EQ(error.LastErrorNumber, 404);
    EXPECT_EQ(error.LastErrorText, "404 Not Found");
    RawServer bare(Always("HTTP/1.1 500\r\nContent-Length: 0\r\n\r\n"));
    Ask(bare.Url("/"), HTTP1::Head, false);
    EXPECT_EQ(error.LastErrorText, "500");
}

struct FailureCase {
    const char* name;
    const char* reply;
    int number;
    const char* text;
};

class Failures : public Client, public testing::WithParamInterface<FailureCase> {};

TEST_P(Failures, LeaveTheirNumberAndText) {
    RawServer server(Always(GetParam().reply, false));
    Ask(server.Url("/"), HTTP1::Get, true);
    EXPECT_EQ(error.LastErrorNumber, GetParam().number);
    EXPECT_EQ(error.LastErrorText, GetParam().text);
    EXPECT_EQ(http.StatusLine(), GetParam().text);
    EXPECT_EQ(server.Connections(), 1);
}

INSTANTIATE_TEST_SUITE_P(Transport, Failures,
                         testing::Values(FailureCase{"closed", "", kErrorOther, "Server sent no data"},
                                         FailureCase{"garbage", "garbage\r\n\r\n", kErrorOther, "Invalid reply"},
                                         FailureCase{"cut", "HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\nx", kErrorOther,
                                                     "Transfer broken off"}),
                         [](const auto& tested) { return tested.param.name; });

TEST_F(Client, KnowsARefusedConnection) {
    int port = 0;
    {
        RawServer server(Always(""));
        port = server.port;
    }
    Ask("http://127.0.0.1:" + std::to_string(port) + "/", HTTP1::Head, false);
    EXPECT_EQ(http.StatusLine(), "Connection refused");
}

TEST_F(Client, NeverFetchesOtherSchemesAndImpossibleHosts) {
    for (const char* url : {"https://127.0.0.1/", "file:///etc/hostname", "http:///x", "http://a b/", "http://a\"b/"}) {
        Ask(url, HTTP1::Get, true);
        EXPECT_EQ(error.LastErrorNumber, kErrorOther) << url;
        EXPECT_EQ(http.StatusLine(), "Invalid address") << url;
    }
}

TEST_F(Client, BoundsHeadsAndBodies) {
    std::string lines;
    for (int i = 0; i < 150; ++i) lines += "X: " + std::string(1000, 'x') + "\r\n";
    RawServer heads(Always("HTTP/1.1 200 OK\r\n" + lines + "\r\n", false));
    Ask(heads.Url("/"), HTTP1::Head, false);
    EXPECT_EQ(error.LastErrorText, "Reply too long");
    RawServer bodies(Always("HTTP/1.1 200 OK\r\nContent-Length: 200000\r\n\r\n" + std::string(200000, 'x'), false));
    Ask(bodies.Url("/"), HTTP1::Get, true);
    EXPECT_EQ(error.LastErrorText, "Reply too long");
}

TEST_F(Client, AProbeNeedsNoBody) {
    RawServer server(Always("HTTP/1.1 200 OK\r\nContent-Length: 900000\r\n\r\nfirst"));
    Ask(server.Url("/"), HTTP1::Get, false);
    EXPECT_EQ(error.LastErrorNumber, 0);
    EXPECT_EQ(http.StatusLine(), "HTTP/1.1 200 OK");
    RawServer silentBehindTheHead(Always("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\n"));
    Ask(silentBehindTheHead.Url("/"), HTTP1::Get, false);
    EXPECT_EQ(error.LastErrorNumber, 0);
}

TEST_F(Client, KeepsTheConnectionOfAShortBody) {
    RawServer server(Always("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nshort"));
    Ask(server.Url("/a"), HTTP1::Get, false);
    Ask(server.Url("/b"), HTTP1::Get, false);
    EXPECT_EQ(server.Connections(), 1);
    http.SetAction(HTTP1::Reset);
    Ask(server.Url("/c"), HTTP1::Get, false);
    EXPECT_EQ(server.Connections(), 2);
}

TEST_F(Client, StopEndsASilentExchange) {
    RawServer server([](const std::string&, int) { return true; });
    loop.StartTimer(std::chrono::milliseconds{50}, false, [this] { http.SetAction(HTTP1::Stop); });
    Ask(server.Url("/"), HTTP1::Head, false);
    EXPECT_EQ(error.LastErrorText, "interrupted");
    EXPECT_EQ(error.LastErrorNumber, kErrorInterrupted);
}

TEST_F(Client, StopWorksInsideEveryEvent) {
    RawServer server(Always("HTTP/1.1 200 OK\r\nA: b\r\nContent-Length: 3\r\n\r\nxyz"));
    const auto stop = [this] { http.SetAction(HTTP1::Stop); };
    http.OnConnected = stop;
    Ask(server.Url("/"), HTTP1::Get, true);
    EXPECT_EQ(error.LastErrorText, "interrupted");
    http.OnConnected = nullptr;
    http.OnHeader = [&](const std::string&, const std::string&) { stop(); };
    Ask(server.Url("/"), HTTP1::Get, true);
    EXPECT_EQ(error.LastErrorText, "interrupted");
    http.OnHeader = nullptr;
    http.OnTransfer = [&](long, const std::string&) { stop(); };
    Ask(server.Url("/"), HTTP1::Get, true);
    EXPECT_EQ(error.LastErrorText, "interrupted");
}

TEST_F(Client, ReadsAChunkedBody) {
    RawServer server(Always("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n0\r\nTrailer: x\r\n\r\n"));
    Ask(server.Url("/"), HTTP1::Get, true);
    EXPECT_EQ(log.back(), "end");
    EXPECT_EQ(log[log.size() - 2], "3 abc");
    EXPECT_EQ(std::count(log.begin(), log.end(), "Trailer: x"), 0);
}

}  // namespace
}  // namespace qv
