#include "session/program_settings.h"

#include <array>
#include <string>
#include <vector>

#include "text/basic_text.h"
#include "text/lines.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr std::size_t kPlainLines = 14;
constexpr std::size_t kAllLines = 18;

std::string Path(const Session& session) { return session.AppPath + "quorvant.cfg"; }

void TakeFlag(const std::string& line, std::int16_t& flag) { flag = LeadingInt16(line).value_or(flag); }

void TakeWindowState(const std::string& line, Form& window) {
    const auto state = LeadingInt16(line);
    if (state == 2)
        window.SetState(WindowState::Maximised);
    else if (state == 0)
        window.SetState(WindowState::Normal);
}

void TakePlainLines(const std::vector<std::string>& lines, ProgramSettings& s, Form& window) {
    using Take = void (*)(const std::string&, ProgramSettings&);
    static constexpr std::array<Take, kPlainLines - 1> kTakers = {
        [](const std::string& line, ProgramSettings& p) { TakeFlag(line, p.ProgramMode); },
        [](const std::string& line, ProgramSettings& p) { TakeFlag(line, p.EntryIsSite); },
        [](const std::string& line, ProgramSettings& p) { p.BrowserPath = line; },
        [](const std::string& line, ProgramSettings& p) { p.EditorPath = line; },
        [](const std::string& line, ProgramSettings& p) { p.LastLocalSite = line; },
        [](const std::string& line, ProgramSettings& p) { p.LastLocalDocument = line; },
        [](const std::string& line, ProgramSettings& p) { p.LastInternetSite = line; },
        [](const std::string& line, ProgramSettings& p) { p.LastInternetDocument = line; },
        [](const std::string& line, ProgramSettings& p) { p.SourceViewerPath = line; },
        [](const std::string& line, ProgramSettings& p) { TakeFlag(line, p.AutoCheckLinks); },
        [](const std::string& line, ProgramSettings& p) { TakeFlag(line, p.RemoteLinksNotChecked); },
        [](const std::string& line, ProgramSettings& p) { TakeFlag(line, p.ShowToolHints); },
        [](const std::string& line, ProgramSettings& p) { TakeFlag(line, p.PersistentRedirectsOk); }};
    if (!lines.empty()) TakeWindowState(lines[0], window);
    for (std::size_t i = 1; i < lines.size() && i < kPlainLines; ++i) kTakers[i - 1](lines[i], s);
    // Only the two modes that are stored can come out of a file.
    if (s.ProgramMode != kLocalMode) s.ProgramMode = kInternetMode;
}

void TakeGeometry(const std::vector<std::string>& lines, Form& window) {
    std::array<int, 4> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (kPlainLines + i >= lines.size()) return;
        const auto value = LeadingInt16(lines[kPlainLines + i]);
        if (!value) return;
        values[i] = *value;
    }
    const auto [top, left, width, height] = values;
    if (window.State() != WindowState::Normal || top <= -1 || left <= -1) return;
    window.KeepPlace({left, top, width, height});
}

}  // namespace

void ReadProgramSettings(const Files& files, const Session& session, ProgramSettings& settings, Form& window) {
    std::string bytes;
    const std::string notepad = session.WindowsFolder + "notepad.exe";
    if (files.Read(Path(session), bytes)) {
        std::vector<std::string> lines;
        LineReader reader(bytes);
        while (!reader.AtEnd() && lines.size() < kAllLines) lines.emplace_back(reader.Next());
        TakePlainLines(lines, settings, window);
        TakeGeometry(lines, window);
    }
    if (settings.SourceViewerPath.empty()) settings.SourceViewerPath = notepad;
    if (settings.EditorPath.empty()) settings.EditorPath = notepad;
}

void WriteProgramSettings(Files& files, const Session& session, const ProgramSettings& s, const Form& window) {
    LineWriter writer;
    const bool minimised = window.State() == WindowState::Minimised;
    writer.Line(minimised ? PrintForm(0) + " " : std::to_string(static_cast<int>(window.State())));
    const std::int16_t mode = s.ProgramMode;
    writer.Line(std::to_string(mode == kBookmarksMode ? 0 : mode))
        .Line(std::to_string(s.EntryIsSite))
        .Line(s.BrowserPath)
        .Line(s.EditorPath)
        .Line(s.LastLocalSite)
        .Line(s.LastLocalDocument)
        .Line(s.LastInternetSite)
        .Line(s.LastInternetDocument)
        .Line(s.SourceViewerPath);
    for (const Flag flag : {s.AutoCheckLinks, s.RemoteLinksNotChecked, s.ShowToolHints, s.PersistentRedirectsOk})
        writer.Line(std::to_string(flag));
    const Geometry& place = window.Place();
    for (const int value : {place.top, place.left, place.width, place.height}) writer.Line(std::to_string(value));
    files.Write(Path(session), writer.Bytes());
}

}  // namespace qv
