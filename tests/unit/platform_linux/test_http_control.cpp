#include "platform_linux/http_fixture.h"

namespace qv {
namespace {

constexpr std::chrono::milliseconds kSoon{20};

TEST_F(HttpExchanges, AStopFromATimerEndsASilentExchange) {
    ScriptedServer server(Silent());
    for (const auto action : {HTTP1::Get, HTTP1::Head}) {
        loop.StartTimer(kSoon, false, [this] { http.SetAction(HTTP1::Stop); });
        Ask(action, server.Url("/"), true);
        EXPECT_EQ(error.LastErrorNumber, kErrorInterrupted);
        EXPECT_EQ(error.LastErrorText, "interrupted");
        EXPECT_EQ(told.back(), "error " + std::to_string(kErrorInterrupted) + " interrupted");
    }
}

TEST_F(HttpExchanges, AStopBehindTheHeadEndsADocument) {
    ScriptedServer server([](Connection& c) {
        c.ReadRequest();
        c.Send("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhalf");
        c.ReadRequest();
    });
    loop.StartTimer(kSoon, false, [this] { http.SetAction(HTTP1::Stop); });
    Open(server.Url("/"));
    EXPECT_EQ(error.LastErrorText, "interrupted");
}

TEST_F(HttpExchanges, AStopWithNothingToStopDoesNothing) {
    ScriptedServer server(Always(kEmptyReply));
    http.SetAction(HTTP1::Stop);
    Probe(server.Url("/"));
    http.SetAction(HTTP1::Stop);
    ExpectSuccess("HTTP/1.1 200 OK");
    EXPECT_EQ(http.StatusLine(), "HTTP/1.1 200 OK");
    http.OnEndTransfer = [this] { http.SetAction(HTTP1::Stop); };
    Probe(server.Url("/"));
    EXPECT_EQ(error.LastErrorNumber, 0);
}

TEST_F(HttpExchanges, AStopInsideAnEventEndsTheExchangeAndItsEvents) {
    ScriptedServer server(Always("HTTP/1.1 200 OK\r\nA: b\r\nContent-Length: 3\r\n\r\nxyz"));
    const auto stop = [this](const std::string& name) {
        told.push_back("stop in " + name);
        http.SetAction(HTTP1::Stop);
    };
    const std::string ended = "error " + std::to_string(kErrorInterrupted) + " interrupted";
    http.OnConnected = [&] { stop("connected"); };
    Open(server.Url("/"));
    EXPECT_EQ(told, (Told{"stop in connected", ended}));
    http.OnConnected = nullptr;
    http.OnHeader = [&](const std::string& field, const std::string&) { stop(field); };
    Open(server.Url("/"));
    EXPECT_EQ(told, (Told{"stop in A", ended}));
    http.OnHeader = [&](const std::string& field, const std::string&) {
        if (field.empty()) stop("end of head");
    };
    Probe(server.Url("/"));
    EXPECT_EQ(told, (Told{"stop in end of head", ended}));
    http.OnHeader = nullptr;
    http.OnStartTransfer = [&] { stop("start"); };
    Open(server.Url("/"));
    EXPECT_EQ(told, (Told{"stop in start", ended}));
    http.OnStartTransfer = nullptr;
    http.OnTransfer = [&](long, const std::string&) { stop("transfer"); };
    Open(server.Url("/"));
    EXPECT_EQ(told, (Told{"stop in transfer", ended}));
    http.OnTransfer = nullptr;
    Open(server.Url("/"));
    EXPECT_EQ(error.LastErrorNumber, 0) << error.LastErrorText;
}

TEST_F(HttpExchanges, TheNextExchangeIsNotHurtByAStop) {
    ScriptedServer server([](Connection& c) {
        while (!c.ReadRequest().empty())
            if (c.number > 1) c.Send(kEmptyReply);
    });
    loop.StartTimer(kSoon, false, [this] { http.SetAction(HTTP1::Stop); });
    Probe(server.Url("/silent"));
    EXPECT_EQ(error.LastErrorText, "interrupted");
    Probe(server.Url("/next"));
    ExpectSuccess("HTTP/1.1 200 OK");
    EXPECT_EQ(server.Connections(), 2);
}

TEST_F(HttpExchanges, AnotherExchangeIsPassedOverWhileOneRuns) {
    ScriptedServer server(Silent());
    bool passedOver = false;
    loop.StartTimer(kSoon, false, [&] {
        http.SetAction(HTTP1::Get);
        http.SetAction(HTTP1::Head);
        http.SetAction(HTTP1::Reset);
        passedOver = true;
        http.SetAction(HTTP1::Stop);
    });
    Probe(server.Url("/"));
    EXPECT_TRUE(passedOver);
    EXPECT_EQ(error.LastErrorText, "interrupted");
    EXPECT_EQ(server.Requests().size(), 1U);
}

TEST_F(HttpExchanges, HandlersMayTurnTheLoop) {
    ScriptedServer server(Always("HTTP/1.1 200 OK\r\nA: b\r\nContent-Length: 50000\r\n\r\n" + std::string(50000, 'x')));
    int deepest = 0;
    int inside = 0;
    const auto turn = [&] {
        deepest = std::max(deepest, ++inside);
        for (int i = 0; i < 3; ++i) loop.WaitFor(0.002);
        --inside;
    };
    http.OnConnected = [&] { turn(); };
    http.OnHeader = [&](const std::string& field, const std::string&) {
        turn();
        told.push_back(field);
    };
    http.OnTransfer = [&](long bytes, const std::string& text) {
        turn();
        body += text;
        bytesTold = bytes;
    };
    Open(server.Url("/"));
    EXPECT_EQ(told, (Told{"A", "Content-Length", "", "start", "end"}));
    EXPECT_EQ(body.size(), 50000U);
    EXPECT_EQ(bytesTold, 50000);
    EXPECT_EQ(deepest, 1);
    EXPECT_EQ(error.LastErrorNumber, 0);
}

TEST_F(HttpExchanges, AnExchangeGoesOnInTheWaitsOfOthers) {
    ScriptedServer server(Always("HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\nxyz"));
    bool endedInside = false;
    loop.StartTimer(std::chrono::milliseconds{0}, false, [&] {
        while (body != "xyz") loop.WaitFor(1);
        endedInside = told.size() == 4;
    });
    Open(server.Url("/"));
    EXPECT_TRUE(endedInside);
    ExpectSuccess("HTTP/1.1 200 OK");
}

TEST_F(HttpExchanges, AStopInANestedWaitReachesTheExchange) {
    ScriptedServer server(Silent());
    loop.StartTimer(std::chrono::milliseconds{0}, false, [&] {
        bool over = false;
        loop.StartTimer(kSoon, false, [&] { over = true; });
        while (!over) loop.WaitFor(1);
        http.SetAction(HTTP1::Stop);
    });
    Probe(server.Url("/"));
    EXPECT_EQ(error.LastErrorText, "interrupted");
}

TEST_F(HttpExchanges, ManyExchangesLeaveNothingBehind) {
    ScriptedServer server([](Connection& c) {
        for (int i = 0; i < 7 && !c.ReadRequest().empty(); ++i) c.Send(kEmptyReply);
    });
    for (int i = 0; i < 200; ++i) {
        Probe(server.Url("/" + std::to_string(i)));
        ASSERT_EQ(error.LastErrorNumber, 0) << i << " " << error.LastErrorText;
        if (i % 50 == 49) http.SetAction(HTTP1::Reset);
    }
    EXPECT_GE(server.Requests().size(), 200U);
}

}  // namespace
}  // namespace qv
