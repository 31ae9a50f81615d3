// quorvantis: the program in its windows.
#include <QApplication>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "automation/automation.h"
#include "desktop/desktop.h"
#include "desktop/icons.h"
#include "desktop/qt_driver.h"
#include "desktop/qt_loop.h"
#include "desktop/theme.h"
#include "platform/linux/line_channel.h"
#include "program/linux_services.h"
#include "program/program.h"

namespace {

[[noreturn]] void End(int code) {
    std::fflush(nullptr);
    std::_Exit(code);
}

bool IsSet(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
}

bool IsAutomated() {
    const char* value = std::getenv("QUORVANTIS_AUTOMATION");
    return value != nullptr && std::string(value) == "1";
}

// Requests in, replies and events out, all carried out at the windows.
struct Remote {
    Remote(qv::EventLoop& loop, qv::Program& program, qv::Desktop& desktop)
        : channel(loop), driver(desktop, IsSet("QUORVANTIS_AUTOMATION_PLACES")), automation(program.Windows(), driver, [this](const std::string& line) { channel.Write(line); }) {}
    void Start() {
        channel.Start([this](const std::string& line) { automation.HandleLine(line); }, [] { End(0); });
    }
    qv::LineChannel channel;
    qv::QtDriver driver;
    qv::Automation automation;
};

}  // namespace

int main(int argc, char** argv) {
    if (!IsSet("DISPLAY") && !IsSet("WAYLAND_DISPLAY") && !IsSet("QT_QPA_PLATFORM")) {
        std::fputs("quorvantis: there is no display. quorvantis-headless and quorvantis-check need none.\n", stderr);
        return 1;
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName("quorvantis");
    QApplication::setDesktopFileName("quorvantis");
    QApplication::setQuitOnLastWindowClosed(false);
    std::setlocale(LC_NUMERIC, "C");  // files and headers know one form of a number
    qv::FollowDesktopColours();
    QApplication::setWindowIcon(qv::ProgramIcon());

    std::string commandLine;
    for (int i = 1; i < argc; ++i) commandLine += (i > 1 ? " " : "") + std::string(argv[i]);
    qv::QtLoop loop;
    qv::LinuxServices world(loop);
    qv::Program program(world.Services(commandLine));
    qv::Desktop desktop(program.Windows(), !IsAutomated());
    std::unique_ptr<Remote> remote;
    if (IsAutomated()) remote = std::make_unique<Remote>(loop, program, desktop);
    program.OnEnd = [&](int code) {
        if (remote) remote->automation.Exiting(code);
        End(code);
    };
    loop.Post([&] {
        if (remote) remote->Start();
        program.Start();
        if (remote) remote->automation.Ready();
    });
    return QApplication::exec();
}
