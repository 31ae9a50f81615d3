// emailcfg.zdt: the values of outgoing mail, one a line. Failures are passed over.
#pragma once

#include <string>

#include "platform/files.h"
#include "session/settings.h"

namespace qv {

void ReadMailSettings(const Files& files, const std::string& appPath, MailSettings& mail);  // nothing changes without a file
void WriteMailSettings(Files& files, const std::string& appPath, const MailSettings& mail);

}  // namespace qv
