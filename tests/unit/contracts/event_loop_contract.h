// What every event loop keeps to. A test of a loop includes this and instantiates EventLoopContract with it.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/event_loop.h"

namespace qv {

using std::chrono::milliseconds;

class Pipe {
   public:
    Pipe() : made_(pipe(ends_.data()) == 0) {}
    ~Pipe() {
        CloseIn();
        close(ends_[0]);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    int Out() const { return ends_[0]; }
    void Put(const std::string& bytes) const {
        ASSERT_TRUE(made_);
        ASSERT_EQ(write(ends_[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    std::string Take() const {
        char bytes[16];
        const ssize_t got = read(ends_[0], bytes, sizeof bytes);
        return std::string(bytes, static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    }
    void CloseIn() {
        if (ends_[1] >= 0) close(ends_[1]);
        ends_[1] = -1;
    }

   private:
    std::array<int, 2> ends_{-1, -1};
    bool made_;
};

template <class Loop>
class EventLoopContract : public testing::Test {};
TYPED_TEST_SUITE_P(EventLoopContract);

TYPED_TEST_P(EventLoopContract, ATimerMayBeStoppedByAnEarlierOneOfTheSameTurn) {
    TypeParam loop;
    std::string order;
    EventLoop::TimerId second = 0;
    loop.StartTimer(milliseconds{0}, false, [&] {
        order += "a";
        loop.StopTimer(second);
    });
    second = loop.StartTimer(milliseconds{0}, false, [&] { order += "b"; });
    loop.StartTimer(milliseconds{0}, false, [&] { order += "c"; });
    std::this_thread::sleep_for(milliseconds{1});
    loop.Yield();
    EXPECT_EQ(order, "ac");
}

TYPED_TEST_P(EventLoopContract, ATimerRunsOnceAlsoWhenTurnsAreNested) {
    TypeParam loop;
    std::string order;
    loop.StartTimer(milliseconds{0}, false, [&] {
        order += "(";
        loop.Yield();
        order += ")";
    });
    loop.StartTimer(milliseconds{0}, false, [&] { order += "x"; });
    std::this_thread::sleep_for(milliseconds{1});
    loop.Yield();
    loop.Yield();
    EXPECT_EQ(order, "(x)");
}

TYPED_TEST_P(EventLoopContract, ARepeatedTimerMayTurnTheLoopAndStopItself) {
    TypeParam loop;
    int ticks = 0;
    EventLoop::TimerId timer = 0;
    timer = loop.StartTimer(milliseconds{1}, true, [&] {
        if (++ticks == 5)
            loop.StopTimer(timer);
        else if (ticks < 5)
            loop.WaitFor(0.003);
    });
    for (int i = 0; i < 100 && ticks < 5; ++i) loop.WaitFor(1);
    loop.StopTimer(timer);
    loop.StopTimer(12345);
    loop.WaitFor(0.005);
    EXPECT_EQ(ticks, 5);
}

TYPED_TEST_P(EventLoopContract, AWaitOfAnyLengthEndsWhenSomethingWasHandled) {
    for (const double seconds : {1e300, std::numeric_limits<double>::infinity(), kWaitForever}) {
        TypeParam loop;
        bool ticked = false;
        loop.StartTimer(milliseconds{2}, false, [&] { ticked = true; });
        for (int waits = 0; waits < 100 && !ticked; ++waits) loop.WaitFor(seconds);  // a loop may have work of its own
        EXPECT_TRUE(ticked);
    }
    TypeParam loop;
    for (const double seconds : {0.0, -1.0, -1e300, std::nan(""), 1e-9}) loop.WaitFor(seconds);
}

TYPED_TEST_P(EventLoopContract, PostedWorkOfOneTurnGoesOnInANestedOne) {
    TypeParam loop;
    std::string order;
    bool second = false;
    loop.Post([&] {
        order += "(";
        while (!second) loop.WaitFor(kWaitForever);
        order += ")";
    });
    loop.Post([&] {
        order += "x";
        second = true;
    });
    loop.WaitFor(1);
    EXPECT_EQ(order, "(x)");
    loop.Yield();
    EXPECT_EQ(order, "(x)");
}

TYPED_TEST_P(EventLoopContract, WorkThatPostsItselfLeavesTheTurnItsEnd) {
    TypeParam loop;
    int runs = 0;
    std::function<void()> again = [&] {
        ++runs;
        loop.Post(again);
    };
    loop.Post(again);
    for (int i = 0; i < 3; ++i) loop.Yield();
    EXPECT_EQ(runs, 3);
}

TYPED_TEST_P(EventLoopContract, NoPostedWorkOfManyThreadsIsLost) {
    constexpr int kThreads = 4;
    constexpr int kEach = 2000;
    TypeParam loop;
    int runs = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&] {
            for (int n = 0; n < kEach; ++n) loop.Post([&] { ++runs; });
        });
    while (runs < kThreads * kEach) loop.WaitFor(kWaitForever);
    for (auto& thread : threads) thread.join();
    loop.Yield();
    EXPECT_EQ(runs, kThreads * kEach);
}

TYPED_TEST_P(EventLoopContract, AReadyDescriptorIsLeftToTheNestedTurnThatTookIt) {
    TypeParam loop;
    Pipe one;
    Pipe two;
    std::string taken;
    const auto watch = [&](const Pipe& pipe, const std::string& name) {
        loop.Watch(pipe.Out(), true, false, [&, name](bool, bool) {
            const std::string bytes = pipe.Take();  // would wait for ever if there was nothing
            taken += name + bytes;
            if (taken.size() == 2) loop.Yield();
        });
    };
    watch(one, "1");
    watch(two, "2");
    one.Put("a");
    two.Put("b");
    for (int i = 0; i < 4; ++i) loop.Yield();
    EXPECT_TRUE(taken == "1a2b" || taken == "2b1a") << taken;
}

TYPED_TEST_P(EventLoopContract, AWatchEndedByAnotherHandlerIsNotCalled) {
    TypeParam loop;
    Pipe one;
    Pipe two;
    int calls = 0;
    for (const Pipe* pipe : {&one, &two})
        loop.Watch(pipe->Out(), true, false, [&](bool, bool) {
            ++calls;
            loop.Unwatch(one.Out());
            loop.Unwatch(two.Out());
        });
    one.Put("a");
    two.Put("b");
    for (int i = 0; i < 3; ++i) loop.Yield();
    EXPECT_EQ(calls, 1);
}

TYPED_TEST_P(EventLoopContract, ANumberThatIsUsedAgainHasNothingOfItsOldWatch) {
    TypeParam loop;
    auto first = std::make_unique<Pipe>();
    Pipe second;
    std::unique_ptr<Pipe> third;
    int oldCalls = 0;
    int newCalls = 0;
    const int number = first->Out();
    const auto reopen = [&](bool, bool) {
        if (third != nullptr) return;
        ++oldCalls;
        loop.Unwatch(number);
        loop.Unwatch(second.Out());
        first.reset();
        third = std::make_unique<Pipe>();
        loop.Watch(third->Out(), true, false, [&](bool, bool) { ++newCalls; });
    };
    loop.Watch(number, true, false, reopen);
    loop.Watch(second.Out(), true, false, reopen);
    first->Put("a");
    second.Put("b");
    for (int i = 0; i < 3; ++i) loop.Yield();
    EXPECT_EQ(oldCalls, 1);
    EXPECT_EQ(newCalls, 0);
    third->Put("c");
    loop.WaitFor(1);
    EXPECT_EQ(newCalls, 1);
}

TYPED_TEST_P(EventLoopContract, AWatchCanBeChangedAndTellsOfTheEnd) {
    TypeParam loop;
    Pipe pipe;
    std::string calls;
    loop.Watch(pipe.Out(), true, false, [&](bool, bool) { calls += "a"; });
    loop.Watch(pipe.Out(), true, false, [&](bool readable, bool writable) {
        calls += readable && !writable ? "b" : "?";
        loop.Unwatch(pipe.Out());
    });
    loop.Yield();
    EXPECT_EQ(calls, "");
    pipe.CloseIn();
    loop.WaitFor(1);
    EXPECT_EQ(calls, "b");
    loop.Yield();
    EXPECT_EQ(calls, "b");
}

REGISTER_TYPED_TEST_SUITE_P(EventLoopContract,
                            ATimerMayBeStoppedByAnEarlierOneOfTheSameTurn,
                            ATimerRunsOnceAlsoWhenTurnsAreNested,
                            ARepeatedTimerMayTurnTheLoopAndStopItself,
                            AWaitOfAnyLengthEndsWhenSomethingWasHandled,
                            PostedWorkOfOneTurnGoesOnInANestedOne,
                            WorkThatPostsItselfLeavesTheTurnItsEnd,
                            NoPostedWorkOfManyThreadsIsLost,
                            AReadyDescriptorIsLeftToTheNestedTurnThatTookIt,
                            AWatchEndedByAnotherHandlerIsNotCalled,
                            ANumberThatIsUsedAgainHasNothingOfItsOldWatch,
                            AWatchCanBeChangedAndTellsOfTheEnd);

}  // namespace qv
