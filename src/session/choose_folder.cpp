#include "session/choose_folder.h"

#include "text/basic_text.h"

namespace qv {

std::string ChosenFolder(const Files& files, std::string answer) {
    if (!EndsWith(answer, "\\") && files.FolderExists(answer)) answer += "\\";
    answer.resize(answer.rfind('\\') + 1);
    return answer;
}

std::optional<std::string> ChooseFolder(WindowSystem& windows, const Files& files, const std::string& title,
                                        const std::string& filter, const std::string& startFolder) {
    const auto answer = windows.ShowFileDialog({.title = title, .filter = filter, .name = "*.", .folder = startFolder});
    if (!answer) return std::nullopt;
    return ChosenFolder(files, *answer);
}

}  // namespace qv
