#include "mainwindow/spin_buttons.h"

namespace qv {

void SpinButtons::Begin(std::int16_t direction) {
    SpinDirection_ = direction;
    Step();
    loop_.Yield();
    window_.Timer2.SetRunning(true);
}

void SpinButtons::Timer2_Timer() {
    if (SpinDirection_ == 0) {
        window_.Timer2.SetRunning(false);
        return;
    }
    window_.Timer2.SetInterval(150);
    Step();
}

void SpinButtons::Step() {
    if (inStep_) return;  // the timer ticks on while a message is read
    inStep_ = true;
    GoToNeighbor();
    inStep_ = false;
}

void SpinButtons::GoToNeighbor() {
    ListBox& documents = window_.txtFileName;
    const int present = documents.ListIndex();
    const int next = SpinDirection_ == 1 ? present + 1 : present - 1;
    if (next < 0 || next >= documents.Count()) return;
    if (flags_.HideGoodLinks == 0 || !FindQuestionableDocument)
        documents.SetListIndex(next);
    else if (!FindQuestionableDocument(SpinDirection_))
        Release();  // the button was let go of in front of the message
}

}  // namespace qv
