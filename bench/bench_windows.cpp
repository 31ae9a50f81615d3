// A link list of 100,000 rows in a real window: filled, scrolled, and refreshed row by row as a run does it.
#include <QApplication>
#include <QScrollBar>
#include <chrono>
#include <cstdio>
#include <string>

#include "controls/list_box.h"
#include "controls/window_system.h"
#include "desktop/desktop.h"
#include "desktop/list_view.h"
#include "desktop/qt_loop.h"

namespace {

constexpr int kRows = 100'000;

class Watch {
   public:
    explicit Watch(const char* what) : what_(what), start_(std::chrono::steady_clock::now()) {}
    void Tell(int steps) const {
        const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start_;
        std::printf("%-46s %8.3f s %10.2f us each\n", what_, passed.count(), passed.count() * 1e6 / steps);
    }

   private:
    const char* what_;
    std::chrono::steady_clock::time_point start_;
};

std::string Row(int number, const char* status) {
    return std::string(status) + std::to_string(number) + ". A link of the bench                [http://127.0.0.1/page" +
           std::to_string(number) + ".html]";
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    qv::QtLoop loop;
    qv::WindowSystem windows([&] { loop.WaitFor(1); });
    qv::Form form(windows, "F", "bench");
    qv::ListBox list(form, "L", qv::ListBox::SelectionKind::Multiple);
    qv::Desktop desktop(windows, false);
    form.SetSize(900, 600);
    windows.Show(form);
    loop.Yield();
    auto* view = dynamic_cast<qv::ListView*>(desktop.WindowOf(form)->BinderOf(list)->Widget());

    const Watch fill("filled, hidden and shown");
    list.SetVisible(false);
    for (int row = 0; row < kRows; ++row) {
        list.AddItem(Row(row, "      "), row + 1);
        list.SetSelected(row, true);
    }
    list.SetVisible(true);
    while (view->verticalScrollBar()->maximum() == 0) loop.Yield();
    view->viewport()->repaint();
    fill.Tell(kRows);

    const Watch scroll("scrolled, painted at 2,000 places");
    for (int step = 0; step < 2000; ++step) {
        view->verticalScrollBar()->setValue(view->verticalScrollBar()->maximum() / 2000 * step);
        view->viewport()->repaint();
    }
    scroll.Tell(2000);

    const Watch refresh("refreshed row by row, events as they are due");
    for (int row = 0; row < kRows; ++row) {
        list.SetListIndex(row);
        list.SetText(row, Row(row, "OK    "));
        list.SetSelected(row, false);
        loop.YieldIfDue();
    }
    refresh.Tell(kRows);

    const Watch turns("refreshed row by row, events after each (2,000)");
    for (int row = 0; row < 2000; ++row) {
        list.SetListIndex(row);
        list.SetText(row, Row(row, "404   "));
        loop.Yield();
    }
    turns.Tell(2000);
    return 0;
}
