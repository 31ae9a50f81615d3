#include <gtest/gtest.h>
#include <netdb.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform/linux/poll_loop.h"
#include "platform/linux/resolver_ip_info1.h"

namespace qv {
namespace {

// A resolver that is held up by names that begin with "stuck" until it is let go.
class Gate {
   public:
    ResolverAnswer Ask(const std::string& name) {
        std::unique_lock lock(mutex_);
        ++asked_;
        changed_.notify_all();
        if (name.find("stuck") == 0) changed_.wait(lock, [this] { return open_; });
        return {0, name + ".address"};
    }
    void AwaitAsked(int count) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return asked_ >= count; });
    }
    void Open() {
        const std::lock_guard lock(mutex_);
        open_ = true;
        changed_.notify_all();
    }

   private:
    std::mutex mutex_;
    std::condition_variable changed_;
    int asked_ = 0;
    bool open_ = false;
};

class HostLookups : public testing::Test {
   protected:
    void Listen(ResolverIpInfo1& info) {
        info.OnRequestComplete = [this, &info](int id, int status, const std::string&) {
            told.push_back(std::to_string(id) + " " + (status == 0 ? "0" : "failed") + " " + info.HostAddress());
        };
    }
    void AwaitTold(std::size_t count) {
        while (told.size() < count) loop.WaitFor(kWaitForever);
    }

    PollLoop loop;
    LastError error;
    std::vector<std::string> told;
};

TEST_F(HostLookups, GiveTheAddressOfThisHost) {
    ResolverIpInfo1 info(loop, error);
    Listen(info);
    EXPECT_EQ(info.HostAddress(), "Default");
    info.SetHostName("localhost");
    AwaitTold(1);
    EXPECT_EQ(told.at(0), "1 0 127.0.0.1");
    info.SetHostName("::1");
    EXPECT_EQ(info.HostAddress(), "Default");
    AwaitTold(2);
    EXPECT_EQ(told.at(1), "2 0 [::1]");
    info.SetHostName("[::1]");
    AwaitTold(3);
    EXPECT_EQ(told.at(2), "3 0 [::1]");
}

// A system without a network says that it can't tell; one with a network, that there is no such name.
TEST_F(HostLookups, OfAReservedNameFail) {
    ResolverIpInfo1 info(loop, error);
    Listen(info);
    info.SetHostName("nosuch.invalid");
    while (told.empty() && error.LastErrorNumber == 0) loop.WaitFor(kWaitForever);
    if (told.empty()) {
        EXPECT_EQ(error.LastErrorNumber, kErrorHostNotFound);
        EXPECT_EQ(info.HostAddress(), "");
    } else {
        EXPECT_EQ(told, std::vector<std::string>{"1 failed 0.0.0.0"});
    }
}

TEST_F(HostLookups, EndByWhatTheResolverSays) {
    for (const int answer : {EAI_NONAME, EAI_NODATA, EAI_AGAIN, EAI_FAIL, EAI_SYSTEM, EAI_MEMORY, EAI_FAMILY}) {
        const bool noSuchName = answer == EAI_NONAME || answer == EAI_NODATA;
        error.Clear();
        told.clear();
        ResolverIpInfo1 info(loop, error, [answer](const std::string&) { return ResolverAnswer{answer, ""}; });
        Listen(info);
        info.SetHostName("h.example");
        while (told.empty() && error.LastErrorNumber == 0) loop.WaitFor(kWaitForever);
        EXPECT_EQ(told.empty(), noSuchName) << answer;
        EXPECT_EQ(error.LastErrorNumber, noSuchName ? 25003 : 0);
        EXPECT_EQ(error.LastErrorText, noSuchName ? "Host not found" : "");
        EXPECT_EQ(info.HostAddress(), noSuchName ? "" : "0.0.0.0");
    }
}

TEST_F(HostLookups, ReuseTheirThread) {
    std::vector<std::thread::id> threads;
    ResolverIpInfo1 info(loop, error, [&threads](const std::string& name) {
        threads.push_back(std::this_thread::get_id());
        return ResolverAnswer{0, name};
    });
    Listen(info);
    for (std::size_t i = 1; i <= 3; ++i) {
        info.SetHostName("h" + std::to_string(i));
        AwaitTold(i);
        info.SetLookupAction(0);
    }
    EXPECT_EQ(told, (std::vector<std::string>{"1 0 h1", "2 0 h2", "3 0 h3"}));
    ASSERT_EQ(threads.size(), 3U);
    EXPECT_EQ(threads[0], threads[2]);
    EXPECT_NE(threads[0], std::this_thread::get_id());
}

TEST_F(HostLookups, AreNotHeldUpByOneThatWasEnded) {
    const auto gate = std::make_shared<Gate>();
    {
        ResolverIpInfo1 info(loop, error, [gate](const std::string& name) { return gate->Ask(name); });
        Listen(info);
        info.SetHostName("stuck");
        gate->AwaitAsked(1);
        info.SetLookupAction(0);
        info.SetHostName("free");
        AwaitTold(1);
        EXPECT_EQ(told, std::vector<std::string>{"2 0 free.address"});
        info.SetHostName("stuck.too");
        gate->AwaitAsked(3);
        info.SetHostName("third");  // ends the one before
        AwaitTold(2);
        EXPECT_EQ(told.back(), "4 0 third.address");
    }
    gate->Open();
    loop.Yield();
    EXPECT_EQ(told.size(), 2U);
}

TEST_F(HostLookups, ThatWereEndedTellNothing) {
    const auto gate = std::make_shared<Gate>();
    ResolverIpInfo1 info(loop, error, [gate](const std::string& name) { return gate->Ask(name); });
    Listen(info);
    info.SetHostName("a..b");
    info.SetLookupAction(0);
    info.SetHostName("quick");
    gate->AwaitAsked(1);
    info.SetLookupAction(0);
    loop.WaitFor(0.01);
    EXPECT_TRUE(told.empty());
    EXPECT_EQ(error.LastErrorNumber, 0);
    info.SetHostName("next");
    AwaitTold(1);
    EXPECT_EQ(told.at(0), "3 0 next.address");
}

TEST_F(HostLookups, MayOutliveTheirOwner) {
    const auto gate = std::make_shared<Gate>();
    {
        ResolverIpInfo1 info(loop, error, [gate](const std::string& name) { return gate->Ask(name); });
        Listen(info);
        info.SetHostName("stuck");
        gate->AwaitAsked(1);
    }
    {
        ResolverIpInfo1 info(loop, error, [gate](const std::string& name) { return gate->Ask(name); });
        Listen(info);
        info.SetHostName("a b");  // its answer is on the way when the owner goes
    }
    gate->Open();
    loop.WaitFor(0.01);
    EXPECT_TRUE(told.empty());
}

}  // namespace
}  // namespace qv
