// A client with its loop, and all that it tells, written down in order.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/linux/curl_http1.h"
#include "platform/linux/poll_loop.h"
#include "platform_linux/scripted_server.h"

namespace qv {

class HttpExchanges : public testing::Test {
   protected:
    static constexpr std::int64_t kMostBodyBytes = 100000;
    using Connection = ScriptedServer::Connection;
    using Told = std::vector<std::string>;

    HttpExchanges() {
        http.OnConnected = [this] { told.emplace_back("connected"); };
        http.OnHeader = [this](const std::string& field, const std::string& value) { told.push_back(field + ": " + value); };
        http.OnStartTransfer = [this] { told.emplace_back("start"); };
        http.OnTransfer = [this](long bytes, const std::string& text) {
            bytesTold = bytes;
            body += text;
        };
        http.OnEndTransfer = [this] { told.emplace_back("end"); };
        http.OnError = [this](int number, const std::string& text) {
            told.push_back("error " + std::to_string(number) + " " + text);
        };
    }

    void Ask(HTTP1::ActionCode action, const std::string& url, bool keepBody) {
        error.Clear();
        told.clear();
        body.clear();
        http.SetURL(url);
        http.OtherHeaders = "Host: " + http.URLServer() + ":" + std::to_string(http.URLPort()) + "\r\nAccept: */*\r\n";
        http.KeepBody = keepBody;
        http.SetAction(action);
    }
    void Open(const std::string& url) { Ask(HTTP1::Get, url, true); }
    void Probe(const std::string& url) { Ask(HTTP1::Head, url, false); }
    void ProbeByGet(const std::string& url) { Ask(HTTP1::Get, url, false); }

    void ExpectSuccess(const std::string& statusLine) const {
        EXPECT_EQ(error.LastErrorNumber, 0) << error.LastErrorText;
        EXPECT_EQ(error.LastErrorText, "");
        EXPECT_EQ(http.StatusLine(), statusLine);
        ASSERT_FALSE(told.empty());
        EXPECT_EQ(told.back(), "end");
    }
    void ExpectFailure(int number, const std::string& text) const {
        EXPECT_EQ(error.LastErrorNumber, number);
        EXPECT_EQ(error.LastErrorText, text);
        EXPECT_EQ(http.StatusLine(), text);
        ASSERT_FALSE(told.empty());
        EXPECT_EQ(told.back(), "error " + std::to_string(number) + " " + text);
    }

    // A connection on which every request gets the same bytes.
    static ScriptedServer::Script Always(const std::string& reply) {
        return [reply](Connection& c) {
            while (!c.ReadRequest().empty() && c.Send(reply)) {
            }
        };
    }
    // A connection on which the first request gets these bytes and then nothing more comes.
    static ScriptedServer::Script Once(const std::string& reply) {
        return [reply](Connection& c) {
            c.ReadRequest();
            c.Send(reply);
        };
    }
    static ScriptedServer::Script Silent() {
        return [](Connection& c) {
            while (!c.ReadRequest().empty()) {
            }
        };
    }

    PollLoop loop;
    LastError error;
    CurlHttp1 http{loop, error, kMostBodyBytes};
    Told told;
    std::string body;
    long bytesTold = 0;
};

inline const std::string kEmptyReply = "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n";

}  // namespace qv
