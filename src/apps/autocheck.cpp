// autocheck: what a scheduled job starts. It starts the program for an unattended check, on the desktop when there is one, and
// leaves it running.
#include <cstdio>
#include <string>

#include "platform/linux/processes.h"
#include "platform/linux/x11_windows.h"

int main() {
    const std::string folder = qv::ProgramFolder();
    if (qv::HasDisplay() && qv::StartDetached(folder + "quorvantis", {"/auto-check"})) return 0;
    if (qv::StartDetached(folder + "quorvantis-headless", {"/auto-check"})) return 0;
    std::fprintf(stderr, "autocheck: %squorvantis-headless can't be started.\n", folder.c_str());
    return 1;
}
