#include "command_world.h"
#include "mainwindow/spin_buttons.h"

namespace qv {
namespace {

struct Spin : CommandWorld {
    SpinButtons spin{window, flags, loop};
    int walks = 0;

    Spin() {
        for (int number = 1; number <= 4; ++number) Document(number, {});
    }
    int Selected() const { return window.txtFileName.ListIndex(); }
};

TEST_F(Spin, StepsOnceAPressAndAtEachTickWhileItIsHeld) {
    spin.SpinRight_MouseDown();
    EXPECT_EQ(Selected(), 1);
    EXPECT_TRUE(window.Timer2.Running());
    spin.Timer2_Timer();
    EXPECT_EQ(window.Timer2.Interval(), 150);
    EXPECT_EQ(Selected(), 2);
    spin.Release();
    spin.Timer2_Timer();
    EXPECT_FALSE(window.Timer2.Running());
    EXPECT_EQ(Selected(), 2);
    spin.SpinLeft_MouseDown();
    EXPECT_EQ(Selected(), 1);
}

TEST_F(Spin, StaysAtTheEnds) {
    spin.SpinLeft_MouseDown();
    EXPECT_EQ(Selected(), 0);
    window.txtFileName.SetListIndex(3);
    spin.SpinRight_MouseDown();
    EXPECT_EQ(Selected(), 3);
}

// The timer of an earlier press still ticks while the message of a new one is read.
TEST_F(Spin, SaysOnceThatThereIsNothingMore) {
    flags.HideGoodLinks = kSet;
    spin.FindQuestionableDocument = [this](std::int16_t direction) {
        EXPECT_EQ(direction, 1);
        ++walks;
        if (walks < 3) spin.Timer2_Timer();
        return false;
    };
    spin.SpinRight_MouseDown();
    EXPECT_EQ(walks, 1);
    spin.Timer2_Timer();  // the button counts as let go of
    EXPECT_EQ(walks, 1);
    EXPECT_FALSE(window.Timer2.Running());
    EXPECT_EQ(Selected(), 0);
}

TEST_F(Spin, GoesOnWhileThereAreQuestionableDocuments) {
    flags.HideGoodLinks = kSet;
    spin.FindQuestionableDocument = [this](std::int16_t) { return ++walks < 3; };
    spin.SpinRight_MouseDown();
    spin.Timer2_Timer();
    spin.Timer2_Timer();
    spin.Timer2_Timer();
    EXPECT_EQ(walks, 3);
}

}  // namespace
}  // namespace qv
