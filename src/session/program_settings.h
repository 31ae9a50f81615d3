// quorvant.cfg: the settings that are the same whatever is open, with the main window's place. Failures are passed over.
#pragma once

#include "controls/form.h"
#include "platform/files.h"
#include "session/session.h"

namespace qv {

// Reads the file into the settings and the window; a missing file gives the defaults. Lines that a short file doesn't have
// leave what is there, and the form of 14 lines leaves the window where it is.
void ReadProgramSettings(const Files& files, const Session& session, ProgramSettings& settings, Form& window);

// Writes the whole file anew. The Zephon Bookmarks mode is written as Internet mode.
void WriteProgramSettings(Files& files, const Session& session, const ProgramSettings& settings, const Form& window);

}  // namespace qv
