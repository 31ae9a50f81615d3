// The readers of the settings' files: whatever is read once is written and read again alike.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "controls/window_system.h"
#include "enterprise/enterprise_files.h"
#include "enterprise/schedule.h"
#include "fakes/fake_files.h"
#include "platform/linux/mail_message.h"
#include "reports/report_options.h"
#include "session/mail_settings_file.h"
#include "session/program_settings.h"

namespace {

// Writes what was read from `name` twice, and compares.
template <class Value, class Read, class Write>
void Stable(const std::string& name, const std::string& bytes, Read read, Write write) {
    qv::FakeFiles files;
    Value value;
    files.files[name] = bytes;
    read(files, value);
    write(files, value);
    const std::string once = files.files[name];
    Value again;
    read(files, again);
    write(files, again);
    if (files.files[name] != once) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    static qv::WindowSystem windows{[] {}};
    static qv::Form window{windows, "F", "F"};
    qv::Session session;
    session.AppPath = "\\";
    Stable<qv::ProgramSettings>(
        "\\quorvant.cfg", bytes, [&](auto& files, auto& value) { ReadProgramSettings(files, session, value, window); },
        [&](auto& files, auto& value) { WriteProgramSettings(files, session, value, window); });
    Stable<qv::MailSettings>(
        "\\emailcfg.zdt", bytes, [](auto& files, auto& value) { ReadMailSettings(files, "\\", value); },
        [](auto& files, auto& value) { WriteMailSettings(files, "\\", value); });
    qv::Settings settings;
    qv::ParseReportOptions(bytes, settings);
    const std::string options = qv::ComposeReportOptions(settings);
    qv::ParseReportOptions(options, settings);
    if (qv::ComposeReportOptions(settings) != options) std::abort();
    (void)qv::ParseEnterpriseList(bytes);
    qv::ParseEnterpriseSettings(bytes, settings);
    qv::Schedule schedule;
    qv::ParseSchedule(bytes, schedule);
    const std::string kept = qv::ComposeSchedule(schedule);
    qv::ParseSchedule(kept, schedule);
    if (qv::ComposeSchedule(schedule) != kept) std::abort();
    if (qv::HasValidTime(schedule)) (void)qv::MakeJob(schedule, "\\");
    (void)qv::ParseMailServer(bytes);
    for (const char c : qv::AddressIn(bytes))
        if (c == '\r' || c == '\n' || c == '<' || c == '>') std::abort();
    return 0;
}
