#include "session/mail_settings_file.h"

#include <array>

#include "text/lines.h"

namespace qv {
namespace {

// The values in the order of their lines.
constexpr std::array<std::string MailSettings::*, 9> kLines = {
    &MailSettings::MailServer,   &MailSettings::MailFromAddress,  &MailSettings::MailFromName,
    &MailSettings::MailSubject,  &MailSettings::MailTo,           &MailSettings::MailIncludeComments,
    &MailSettings::MailAuthName, &MailSettings::MailAuthPassword, &MailSettings::MailAuthRequired};

}  // namespace

void ReadMailSettings(const Files& files, const std::string& appPath, MailSettings& mail) {
    std::string bytes;
    if (!files.Read(appPath + "emailcfg.zdt", bytes)) return;
    LineReader reader(bytes);
    for (const auto line : kLines)
        if (!reader.AtEnd()) mail.*line = std::string(reader.Next());
}

void WriteMailSettings(Files& files, const std::string& appPath, const MailSettings& mail) {
    LineWriter writer;
    for (const auto line : kLines) writer.Line(mail.*line);
    files.Write(appPath + "emailcfg.zdt", writer.Line("").Line("").Bytes());
}

}  // namespace qv
