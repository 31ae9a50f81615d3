#include "mainwindow/tip_form.h"

#include "text/lines.h"
#include "text/numbers.h"

namespace qv {
namespace {

constexpr const char* kSection = "Options";
constexpr const char* kShowTips = "Show Tips at Startup";
constexpr const char* kCurrentTip = "Current Tip";
constexpr const char* kTipFile = "tipofday.txt";

}  // namespace

TipForm::TipForm(WindowSystem& windows, const Files& files, SettingsStore& store, const Session& session)
    : Form(windows, "TipForm", "Tip of the Day"), files_(files), store_(store), session_(session) {
    SetSize(460, 280);
    SetDefaultButton(&cmdOK);
    SetCancelButton(&cmdOK);
    Load = [this] { Form_Load(); };
    cmdNextTip.Click = [this] { NextTip(); };
    cmdOK.Click = [this] { Close(); };
}

void TipForm::Form_Load() {
    Centre();
    const int show = LeadingInt32(store_.Get(kSection, kShowTips, "1")).value_or(1);
    currentTip_ = LeadingInt32(store_.Get(kSection, kCurrentTip, "1")).value_or(1);
    if (show == 0) {
        Close();
        return;
    }
    chkLoadTipsAtStartup.SetValue(1);
    chkLoadTipsAtStartup.Click = [this] { store_.Save(kSection, kShowTips, std::to_string(chkLoadTipsAtStartup.Value())); };
    if (LoadTips(kTipFile)) {
        NextTip();
        return;
    }
    const std::string twoBreaks = session_.LineBreak + session_.LineBreak;
    lblTipText.SetCaption(std::string("That the ") + kTipFile + " file was not found? " + twoBreaks +
                          "Create a text file named " + kTipFile + " using NotePad with 1 tip per line. " +
                          "Then place it in the same directory as the application. ");
}

bool TipForm::LoadTips(const std::string& fileName) {
    std::string bytes;
    if (fileName.empty() || !files_.Read(session_.AppPath + fileName, bytes)) return false;
    LineReader reader(bytes);
    while (!reader.AtEnd()) tips_.emplace_back(reader.Next());
    return true;
}

void TipForm::NextTip() {
    if (tips_.empty()) return;
    currentTip_ = currentTip_ < 0 || currentTip_ >= static_cast<int>(tips_.size()) ? 1 : currentTip_ + 1;
    store_.Save(kSection, kCurrentTip, std::to_string(currentTip_));
    DisplayCurrentTip();
}

void TipForm::DisplayCurrentTip() { lblTipText.SetCaption(tips_[static_cast<std::size_t>(currentTip_) - 1]); }

}  // namespace qv
