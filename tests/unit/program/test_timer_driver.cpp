#include "program/timer_driver.h"

#include <gtest/gtest.h>

#include <memory>

#include "controls/form.h"
#include "controls/window_system.h"
#include "fakes/fake_loop.h"

namespace qv {
namespace {

class Timers : public testing::Test {
   protected:
    Timers() {
        timer->Use(&driver);
        timer->Tick = [this] { ++ticks; };
    }
    void Pass(double seconds) {
        for (const double end = clock.now + seconds; clock.now < end;) loop.WaitFor(end - clock.now);
    }

    FakeClock clock;
    FakeLoop loop{clock};
    TimerDriver driver{loop};
    WindowSystem windows{[] {}};
    Form form{windows, "Form1", ""};
    std::unique_ptr<Timer> timer = std::make_unique<Timer>(form, "Timer1");
    int ticks = 0;
};

TEST_F(Timers, TickAgainAndAgainWhileTheyRun) {
    timer->SetInterval(1000);
    Pass(5);
    EXPECT_EQ(ticks, 0);
    timer->SetRunning(true);
    Pass(3.5);
    EXPECT_EQ(ticks, 3);
    timer->SetRunning(false);
    Pass(5);
    EXPECT_EQ(ticks, 3);
}

TEST_F(Timers, OfNoIntervalNeverTick) {
    timer->SetRunning(true);
    Pass(5);
    timer->SetInterval(0);
    Pass(5);
    EXPECT_EQ(ticks, 0);
}

TEST_F(Timers, BeginTheirIntervalAnewWhenTheyAreSet) {
    timer->SetInterval(2000);
    timer->SetRunning(true);
    for (int i = 0; i < 4; ++i) {
        Pass(1.5);
        timer->SetRunning(true);
    }
    EXPECT_EQ(ticks, 0);
    Pass(1.5);
    timer->SetInterval(1000);
    Pass(0.9);
    EXPECT_EQ(ticks, 0);
    Pass(0.2);
    EXPECT_EQ(ticks, 1);
}

TEST_F(Timers, MayStopOrChangeThemselvesInTheirTick) {
    timer->Tick = [this] {
        timer->SetRunning(false);
        if (++ticks == 2) return;
        timer->SetInterval(500);
        timer->SetRunning(true);
    };
    timer->SetInterval(1000);
    timer->SetRunning(true);
    Pass(1.4);
    EXPECT_EQ(ticks, 1);
    Pass(5);
    EXPECT_EQ(ticks, 2);
}

TEST_F(Timers, ThatAreGoneTickNoMore) {
    timer->SetInterval(1000);
    timer->SetRunning(true);
    timer.reset();
    Pass(5);
    EXPECT_EQ(ticks, 0);
}

}  // namespace
}  // namespace qv
