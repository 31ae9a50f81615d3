// quorvantis-headless: the whole program without windows. It needs no display.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "automation/automation.h"
#include "automation/driver.h"
#include "controls/form.h"
#include "platform/linux/line_channel.h"
#include "platform/linux/poll_loop.h"
#include "program/linux_services.h"
#include "program/program.h"

namespace {

// Nobody is there to see or answer: messages go to standard error and take their default button, dialogs are cancelled, modal
// windows close at once.
class Unattended : public qv::WindowListener {
   public:
    explicit Unattended(qv::WindowSystem& windows) : windows_(windows) { windows.Listen(this); }
    void FormShown(qv::Form& form) override {
        if (form.Modal()) form.Close();
    }
    void FormClosed(const qv::Form&) override {}
    void MessageShown(const qv::MessageRequest& request) override {
        std::fprintf(stderr, "%s\n", request.text.c_str());
        windows_.Answer(request.defaultButton);
    }
    void DialogShown(const qv::FileDialogRequest&) override { windows_.Answer(std::nullopt); }
    void Beeped() override {}

   private:
    qv::WindowSystem& windows_;
};

[[noreturn]] void End(int code) {
    std::fflush(nullptr);
    std::_Exit(code);
}

int RunAutomated(qv::LinuxServices& world, qv::Program& program) {
    qv::LineChannel channel(world.Loop());
    qv::ControlDriver driver;
    qv::Automation automation(program.Windows(), driver, [&](const std::string& line) { channel.Write(line); });
    program.OnEnd = [&](int code) {
        automation.Exiting(code);
        End(code);
    };
    channel.Start([&](const std::string& line) { automation.HandleLine(line); }, [] { End(0); });
    program.Start();
    automation.Ready();
    for (;;) world.Loop().WaitFor(qv::kWaitForever);
}

int RunAlone(qv::Program& program) {
    const Unattended unattended(program.Windows());
    program.OnEnd = [](int code) { End(code); };
    program.Start();
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    std::string commandLine;
    for (int i = 1; i < argc; ++i) commandLine += (i > 1 ? " " : "") + std::string(argv[i]);
    qv::PollLoop loop;
    qv::LinuxServices world(loop);
    qv::Program program(world.Services(commandLine));
    const char* automated = std::getenv("QUORVANTIS_AUTOMATION");
    return automated != nullptr && std::string(automated) == "1" ? RunAutomated(world, program) : RunAlone(program);
}
